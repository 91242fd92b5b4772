#include "platform/linux/office/uno/unoValues.h"

#include "platform/linux/office/OfficeConnection.h"
#include "platform/linux/office/uno/unoText.h"

#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/reflection/InvocationTargetException.hpp>
#include <com/sun/star/script/CannotConvertException.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Sequence;
using css::uno::TypeClass;

namespace zorvo {

namespace {

using Kind = OfficeFailure::Kind;
using DocumentOf = std::function<css::uno::Reference<css::frame::XModel>(int)>;

struct ToUno {
    const DocumentOf& documentOf;

    Any operator()(std::monostate) const { return {}; }
    Any operator()(const std::string& text) const { return Any(unoText(text)); }
    Any operator()(const std::vector<std::string>& texts) const
    {
        Sequence<rtl::OUString> sequence(static_cast<sal_Int32>(texts.size()));
        for (std::size_t at = 0; at < texts.size(); ++at)
            sequence.getArray()[at] = unoText(texts[at]);
        return Any(sequence);
    }
    Any operator()(const AutomationObjectPtr& object) const
    {
        const auto* handle = dynamic_cast<const OfficeDocumentHandle*>(object.get());
        if (handle == nullptr)
            throw OfficeFailure(Kind::badArguments, "Only documents of this office can be handed over.");
        return Any(documentOf(handle->document()));
    }
    Any operator()(std::int32_t number) const { return Any(sal_Int32(number)); }
    Any operator()(std::uint32_t number) const { return Any(sal_uInt32(number)); }
    template <typename Plain>
    Any operator()(Plain plain) const
    {
        return Any(plain);
    }
};

std::vector<std::string> texts(const Any& value)
{
    std::vector<std::string> result;
    for (const rtl::OUString& text : value.get<Sequence<rtl::OUString>>())
        result.push_back(plainText(text));
    return result;
}

/// The component's own words; what wraps them says nothing to a user.
std::string reason(const css::reflection::InvocationTargetException& e)
{
    css::uno::Exception cause;
    e.TargetException >>= cause;
    return plainText(cause.Message.isEmpty() ? e.Message : cause.Message);
}

} // namespace

Any unoValue(const Value& value, const DocumentOf& documentOf)
{
    return std::visit(ToUno{documentOf}, value);
}

Value plainValue(const Any& value)
{
    switch (value.getValueTypeClass()) {
    case TypeClass::TypeClass_VOID:
        return {};
    case TypeClass::TypeClass_BOOLEAN:
        return value.get<bool>();
    case TypeClass::TypeClass_BYTE:
    case TypeClass::TypeClass_SHORT:
        return static_cast<std::int16_t>(value.get<sal_Int16>());
    case TypeClass::TypeClass_UNSIGNED_SHORT:
    case TypeClass::TypeClass_LONG:
        return static_cast<std::int32_t>(value.get<sal_Int32>());
    case TypeClass::TypeClass_UNSIGNED_LONG:
        return static_cast<std::uint32_t>(value.get<sal_uInt32>());
    case TypeClass::TypeClass_FLOAT:
    case TypeClass::TypeClass_DOUBLE:
        return value.get<double>();
    case TypeClass::TypeClass_STRING:
        return plainText(value.get<rtl::OUString>());
    case TypeClass::TypeClass_SEQUENCE:
        if (value.has<Sequence<rtl::OUString>>())
            return texts(value);
        break;
    default:
        break;
    }
    throw OfficeFailure(Kind::badArguments,
                        "The add-in gave a value of type " + plainText(value.getValueTypeName()) + ".");
}

Value invokeMember(const css::uno::Reference<css::script::XInvocation>& addIn, const rtl::OUString& member,
                   const Sequence<Any>& arguments, std::vector<Value>& results)
{
    if (!addIn->hasMethod(member))
        throw OfficeFailure(Kind::noMember, plainText(member));
    Sequence<sal_Int16> outIndexes;
    Sequence<Any> out;
    Any result;
    try {
        result = addIn->invoke(member, arguments, outIndexes, out);
    } catch (const css::reflection::InvocationTargetException& e) {
        throw OfficeFailure(Kind::raised, reason(e));
    } catch (const css::script::CannotConvertException& e) {
        throw OfficeFailure(Kind::badArguments, plainText(e.Message));
    } catch (const css::lang::IllegalArgumentException& e) {
        throw OfficeFailure(Kind::badArguments, plainText(e.Message));
    }
    for (sal_Int32 at = 0; at < outIndexes.getLength() && at < out.getLength(); ++at) {
        const sal_Int16 nIndex = outIndexes[at];
        if (nIndex >= 0 && static_cast<std::size_t>(nIndex) < results.size())
            results[static_cast<std::size_t>(nIndex)] = plainValue(out[at]);
    }
    return plainValue(result);
}

} // namespace zorvo
