// An add-in as the products bring one: a component inside the office whose members are called by name.

#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/reflection/InvocationTargetException.hpp>
#include <com/sun/star/script/CannotConvertException.hpp>
#include <com/sun/star/script/XInvocation.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/implbase1.hxx>
#include <unistd.h>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using rtl::OUString;

namespace {

class TestAddIn : public cppu::WeakImplHelper1<css::script::XInvocation> {
public:
    Reference<css::beans::XIntrospectionAccess> SAL_CALL getIntrospection() override { return {}; }
    void SAL_CALL setValue(const OUString&, const Any&) override {}
    Any SAL_CALL getValue(const OUString&) override { return {}; }
    sal_Bool SAL_CALL hasProperty(const OUString&) override { return false; }

    sal_Bool SAL_CALL hasMethod(const OUString& name) override
    {
        return name == "SetCompanyID" || name == "StuffProperties" || name == "RefreshFields" ||
               name == "TreeSelectProfileDataForm" || name == "Echo" || name == "Fail" || name == "Die" ||
               name == "Sleep";
    }

    Any SAL_CALL invoke(const OUString& name, const Sequence<Any>& arguments, Sequence<sal_Int16>& outIndexes,
                        Sequence<Any>& out) override
    {
        if (name == "StuffProperties")
            return stuff(arguments);
        if (name == "RefreshFields")
            return Any(Reference<css::text::XTextDocument>(arguments[0], css::uno::UNO_QUERY).is());
        if (name == "Echo")
            return arguments[0];
        if (name == "TreeSelectProfileDataForm")
            return selectProfile(outIndexes, out);
        if (name == "Fail")
            throw css::reflection::InvocationTargetException(
                "wrapped", *this, Any(css::uno::RuntimeException("No profile is open.", *this)));
        if (name == "Die")
            _exit(3);
        if (name == "Sleep")
            sleep(3600);
        return {};
    }

private:
    static Any stuff(const Sequence<Any>& arguments)
    {
        OUString text;
        const Reference<css::text::XTextDocument> document(arguments[0], css::uno::UNO_QUERY);
        if (!document.is() || !(arguments[1] >>= text))
            throw css::lang::IllegalArgumentException();
        document->getText()->setString(text);
        return {};
    }

    static Any selectProfile(Sequence<sal_Int16>& outIndexes, Sequence<Any>& out)
    {
        outIndexes.realloc(1);
        outIndexes.getArray()[0] = 0;
        out.realloc(1);
        out.getArray()[0] <<= OUString("C:\\Profile\\");
        return Any(OUString("profile"));
    }
};

} // namespace

extern "C" __attribute__((visibility("default"))) css::uno::XInterface*
zorvo_test_addin(css::uno::XComponentContext*, const Sequence<Any>&)
{
    return cppu::acquire(new TestAddIn);
}
