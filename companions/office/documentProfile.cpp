#include "companions/office/documentProfile.h"

#include <com/sun/star/beans/IllegalTypeException.hpp>
#include <com/sun/star/beans/PropertyAttribute.hpp>
#include <com/sun/star/beans/XPropertyContainer.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/XDocumentPropertiesSupplier.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/sheet/XCellRangeReferrer.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextFieldsSupplier.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <com/sun/star/util/XProtectable.hpp>
#include <com/sun/star/util/XRefreshable.hpp>

#include <vector>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;
using rtl::OUString;

namespace zorvo {

namespace {

OUString unoText(const std::string& text)
{
    return {text.data(), static_cast<sal_Int32>(text.size()), RTL_TEXTENCODING_UTF8};
}

Reference<css::beans::XPropertySet> propertiesOf(const OfficeDocumentModel& document)
{
    const Reference<css::document::XDocumentPropertiesSupplier> supplier(document, UNO_QUERY_THROW);
    return {supplier->getDocumentProperties()->getUserDefinedProperties(), UNO_QUERY_THROW};
}

void setProperty(const Reference<css::beans::XPropertySet>& properties, const OUString& name,
                 const Any& value)
{
    const Reference<css::beans::XPropertyContainer> container(properties, UNO_QUERY_THROW);
    if (properties->getPropertySetInfo()->hasPropertyByName(name)) {
        try {
            properties->setPropertyValue(name, value);
            return;
        } catch (const css::lang::IllegalArgumentException&) {
            // The template has it as a date or a number: it makes room for the text.
            container->removeProperty(name);
        } catch (const css::beans::IllegalTypeException&) {
            container->removeProperty(name);
        }
    }
    container->addProperty(name, css::beans::PropertyAttribute::REMOVABLE, value);
}

Reference<css::container::XNameAccess> namedRangesOf(const OfficeDocumentModel& document)
{
    const Reference<css::sheet::XSpreadsheetDocument> workbook(document, UNO_QUERY);
    if (!workbook.is())
        return {};
    const Reference<css::beans::XPropertySet> settings(workbook, UNO_QUERY_THROW);
    return {settings->getPropertyValue("NamedRanges"), UNO_QUERY};
}

/// What is protected with no password: the workbook's structure ahead of its sheets.
std::vector<Reference<css::util::XProtectable>> protectablesOf(const OfficeDocumentModel& document)
{
    std::vector<Reference<css::util::XProtectable>> all;
    const Reference<css::sheet::XSpreadsheetDocument> workbook(document, UNO_QUERY);
    if (!workbook.is())
        return all;
    all.emplace_back(document, UNO_QUERY);
    const Reference<css::container::XIndexAccess> sheets(workbook->getSheets(), UNO_QUERY_THROW);
    for (sal_Int32 nSheet = 0; nSheet < sheets->getCount(); ++nSheet)
        all.emplace_back(sheets->getByIndex(nSheet), UNO_QUERY);
    std::erase_if(all, [](const auto& each) { return !each.is(); });
    return all;
}

void unprotect(const Reference<css::util::XProtectable>& protectable)
{
    try {
        protectable->unprotect("");
    } catch (const css::lang::IllegalArgumentException&) { // it has a password of its own
    }
}

/// Sheets that may be written to as long as this lives.
class OpenSheets {
public:
    explicit OpenSheets(const OfficeDocumentModel& document)
    {
        for (const auto& each : protectablesOf(document)) {
            if (!each->isProtected())
                continue;
            unprotect(each);
            if (!each->isProtected())
                opened_.push_back(each);
        }
    }
    ~OpenSheets()
    {
        try {
            for (const auto& each : opened_)
                each->protect("");
        } catch (const css::uno::Exception&) { // the document has gone
            opened_.clear();
        }
    }
    OpenSheets(const OpenSheets&) = delete;
    OpenSheets& operator=(const OpenSheets&) = delete;

private:
    std::vector<Reference<css::util::XProtectable>> opened_;
};

/// The first cell of the range with this name, or null.
Reference<css::text::XText> cellNamed(const Reference<css::container::XNameAccess>& ranges,
                                      const OUString& name)
{
    if (!ranges->hasByName(name))
        return {};
    const Reference<css::sheet::XCellRangeReferrer> range(ranges->getByName(name), UNO_QUERY);
    if (!range.is() || !range->getReferredCells().is())
        return {};
    return {range->getReferredCells()->getCellByPosition(0, 0), UNO_QUERY};
}

void showInCells(const OfficeDocumentModel& document)
{
    const auto ranges = namedRangesOf(document);
    if (!ranges.is())
        return;
    const auto properties = propertiesOf(document);
    const OpenSheets open(document);
    for (const css::beans::Property& property : properties->getPropertySetInfo()->getProperties()) {
        OUString value;
        const auto cell = cellNamed(ranges, property.Name);
        if (cell.is() && (properties->getPropertyValue(property.Name) >>= value) &&
            cell->getString() != value)
            cell->setString(value);
    }
}

} // namespace

bool isOfficeDocument(const OfficeDocumentModel& document)
{
    return Reference<css::document::XDocumentPropertiesSupplier>(document, UNO_QUERY).is();
}

void stuffProfile(const OfficeDocumentModel& document, const ProfileData& profile)
{
    const auto properties = propertiesOf(document);
    for (const ProfileField& field : profile)
        setProperty(properties, unoText(field.sName), Any(unoText(field.sValue)));
    refreshProfile(document);
}

void setMark(const OfficeDocumentModel& document, const char* name, bool bValue)
{
    setProperty(propertiesOf(document), OUString::createFromAscii(name), Any(bValue));
}

void refreshShownProfile(const OfficeDocumentModel& document)
{
    const Reference<css::util::XModifiable> modifiable(document, UNO_QUERY_THROW);
    const bool bModified = modifiable->isModified();
    refreshProfile(document);
    if (!bModified)
        modifiable->setModified(false);
}

void refreshProfile(const OfficeDocumentModel& document)
{
    const Reference<css::text::XTextFieldsSupplier> text(document, UNO_QUERY);
    if (text.is())
        Reference<css::util::XRefreshable>(text->getTextFields(), UNO_QUERY_THROW)->refresh();
    else
        showInCells(document);
}

bool protectWorkbook(const OfficeDocumentModel& document, bool bProtect)
{
    const auto protectables = protectablesOf(document);
    for (const auto& each : protectables) {
        if (bProtect && !each->isProtected())
            each->protect("");
        else if (!bProtect)
            unprotect(each);
    }
    return !protectables.empty();
}

} // namespace zorvo
