#pragma once

#include "platform/Automation.h"
#include "platform/linux/office/OfficeSession.h"

#include <memory>

namespace zorvo {

/// An add-in inside a running office, its members called by name. Documents among the arguments are those of
/// the same office; every other object is a mismatch (13).
class OfficeAddInObject : public LateBoundObject {
public:
    OfficeAddInObject(std::shared_ptr<OfficeSession> session, int nAddIn);
    ~OfficeAddInObject() override;
    OfficeAddInObject(const OfficeAddInObject&) = delete;
    OfficeAddInObject& operator=(const OfficeAddInObject&) = delete;

    Value invoke(const std::string& member, std::vector<Value>& arguments) override;
    /// Members have no numbers here: always 438.
    Value invokeById(int dispatchId, std::vector<Value>& arguments) override;

private:
    Value handedOver(const Value& argument) const;

    std::shared_ptr<OfficeSession> session_;
    int nAddIn_;
};

} // namespace zorvo
