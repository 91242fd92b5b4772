#pragma once

#include "platform/Inspection.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

/// What a look at the machine found.
namespace zorvo {

struct Fact {
    std::string sName;
    std::variant<std::string, bool, std::int64_t> value;
};

struct DiagnosisItem {
    std::string sName;
    std::vector<Fact> facts = {};
    std::vector<Fault> faults = {};
};

struct DiagnosisSection {
    std::string sName; // one word, for scripts: "products"
    std::vector<DiagnosisItem> items = {};
};

struct Diagnosis {
    std::vector<DiagnosisSection> sections;

    std::size_t faultCount() const;
};

/// Looks the whole machine over, through the ports that are installed. Changes nothing, as long as the ports
/// don't. Throws RunTimeError when the look itself fails.
Diagnosis diagnose(Inspection& inspection);

/// For people: a line per item, its faults below it, and what it comes to at the end.
std::string diagnosisText(const Diagnosis& diagnosis);
/// One JSON object: `ok`, `faults` (their number) and an array per section, of objects with `name`, the facts
/// and `faults` (code, text, file, line).
std::string diagnosisJson(const Diagnosis& diagnosis);

} // namespace zorvo
