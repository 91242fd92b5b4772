#include "platform/linux/office/OfficeAddInObject.h"

#include "base/RunTimeError.h"
#include "platform/linux/office/LibreOfficeDocuments.h"

namespace zorvo {

OfficeAddInObject::OfficeAddInObject(std::shared_ptr<OfficeSession> session, int nAddIn)
    : session_(std::move(session))
    , nAddIn_(nAddIn)
{
}

OfficeAddInObject::~OfficeAddInObject()
{
    session_->tell([n = nAddIn_](OfficeConnection& office) { office.forgetAddIn(n); });
}

Value OfficeAddInObject::handedOver(const Value& argument) const
{
    const auto* object = std::get_if<AutomationObjectPtr>(&argument);
    if (object == nullptr)
        return argument;
    const auto* holder = dynamic_cast<const DocumentHolder*>(object->get());
    if (holder == nullptr)
        throw RunTimeError(kTypeMismatch);
    const DocumentCore::Loaded loaded = holder->core()->handOver();
    if (loaded.session != session_)
        throw RunTimeError(kTypeMismatch, "The document is open in another office than the add-in.");
    return AutomationObjectPtr(std::make_shared<OfficeDocumentHandle>(loaded.nDocument));
}

Value OfficeAddInObject::invoke(const std::string& member, std::vector<Value>& arguments)
{
    struct Call {
        std::vector<Value> arguments;
        Value result;
    };
    Call call;
    for (const Value& argument : arguments)
        call.arguments.push_back(handedOver(argument));
    Call answer = session_->ask<Call>([nAddIn = nAddIn_, member, call](OfficeConnection& office) {
        Call done = call;
        done.result = office.invoke(nAddIn, member, done.arguments);
        return done;
    });
    for (std::size_t at = 0; at < arguments.size(); ++at)
        if (!std::holds_alternative<AutomationObjectPtr>(arguments[at]))
            arguments[at] = std::move(answer.arguments[at]);
    return std::move(answer.result);
}

Value OfficeAddInObject::invokeById(int, std::vector<Value>&)
{
    throw RunTimeError(kMemberNotFound);
}

} // namespace zorvo
