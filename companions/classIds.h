#pragma once

namespace zorvo {

/// A class as the registry knows it.
struct RegisteredClass {
    /// Empty for a class that is known by its class id alone.
    const char* progId;
    const char* classId;
    const char* description;
    /// The office also loads it, as a component of its own.
    bool bInsideOffice = false;
};

inline constexpr RegisteredClass kWordAddIn{"ZorvoTSR.Connect", "{F44130A2-C6C3-42BB-8D99-D6456011534B}",
                                            "Profile data for Word", true};
inline constexpr RegisteredClass kExcelAddIn{
    "ZorvoTSR.ExcelConnect", "{C6A7C3C7-77DF-40FF-BBD6-875288691224}", "Profile data for Excel", true};
inline constexpr RegisteredClass kActXManager{"Brendle.ActXManager", "{9A2ED757-B913-4A16-AA27-364F106D2C62}",
                                              "Brendle framework"};
inline constexpr RegisteredClass kReferenceLocation{"", "{3561154C-DACA-40C5-85E8-A020D429B090}",
                                                    "Location of reference material"};

inline constexpr RegisteredClass kRegisteredClasses[] = {kWordAddIn, kExcelAddIn, kActXManager,
                                                         kReferenceLocation};

} // namespace zorvo
