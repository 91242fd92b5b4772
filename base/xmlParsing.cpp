#include "base/xmlParsing.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>

#include <cstddef>
#include <limits>
#include <new>

namespace zorvo {

namespace {

struct ParserDeleter {
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

/// What the references of one document may add up to. The parser's own limits stop what grows by nesting, but
/// it joins texts in a time that grows with the square of their number.
struct EntityBudget {
    static constexpr std::size_t kPerReference = 50;
    std::size_t nLeft = 1'000'000;
    bool bExceeded = false;
};

/// Entities of other files are never declared, so nothing can make the parser open one.
void declareInternalEntity(void* parser, const xmlChar* name, int type, const xmlChar* publicId,
                           const xmlChar* systemId, xmlChar* content)
{
    if (type == XML_INTERNAL_GENERAL_ENTITY || type == XML_INTERNAL_PARAMETER_ENTITY)
        xmlSAX2EntityDecl(parser, name, type, publicId, systemId, content);
}

/// Called for each reference to an entity that the document declares.
xmlEntity* lookUpEntity(void* parser, const xmlChar* name)
{
    xmlEntity* entity = xmlSAX2GetEntity(parser, name);
    auto* context = static_cast<xmlParserCtxt*>(parser);
    auto* budget = static_cast<EntityBudget*>(context->_private);
    if (!entity || !budget)
        return entity;
    const std::size_t nCost = static_cast<std::size_t>(entity->length) + EntityBudget::kPerReference;
    if (budget->bExceeded || nCost > budget->nLeft) {
        budget->bExceeded = true;
        xmlStopParser(context);
        return nullptr;
    }
    budget->nLeft -= nCost;
    return entity;
}

/// The parser takes a zero character behind the root for the end of the text.
bool isReadToItsEnd(const xmlParserCtxt& context)
{
    return context.input && context.input->cur == context.input->end;
}

} // namespace

std::shared_ptr<_xmlDoc> parseXml(std::string_view bytes, const char* encoding)
{
    if (bytes.empty() || bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return nullptr;
    const std::unique_ptr<xmlParserCtxt, ParserDeleter> context(xmlNewParserCtxt());
    if (!context)
        throw std::bad_alloc();
    EntityBudget budget;
    context->_private = &budget;
    context->sax->entityDecl = declareInternalEntity;
    context->sax->getEntity = lookUpEntity;
    // XML_PARSE_HUGE is left out on purpose: a catalogue from outside must not exhaust the machine. Entities
    // are replaced as they are read, since the parser limits their growth only then.
    constexpr int kOptions =
        XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_COMPACT;
    const std::shared_ptr<xmlDoc> document(xmlCtxtReadMemory(context.get(), bytes.data(),
                                                             static_cast<int>(bytes.size()), nullptr,
                                                             encoding, kOptions),
                                           xmlFreeDoc);
    const bool bWellFormed = context->wellFormed != 0 && !budget.bExceeded && isReadToItsEnd(*context);
    return bWellFormed ? document : nullptr;
}

} // namespace zorvo
