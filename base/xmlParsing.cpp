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

/// What a parser carries with it.
struct Reading {
    EntityBudget budget;
    XmlFault fault;
};

void noteFault(Reading& reading, int nLine, const char* sText)
{
    if (reading.fault.nLine != 0)
        return; // what follows the first fault is often no more than its consequence
    reading.fault.nLine = nLine;
    reading.fault.sText = sText ? sText : "";
    while (reading.fault.sText.ends_with('\n'))
        reading.fault.sText.pop_back();
}

void collectFault(void* parser, xmlError* error)
{
    auto* reading = static_cast<Reading*>(static_cast<xmlParserCtxt*>(parser)->_private);
    if (reading && error->level >= XML_ERR_ERROR)
        noteFault(*reading, error->line, error->message);
}

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
    auto* reading = static_cast<Reading*>(context->_private);
    if (!entity || !reading)
        return entity;
    EntityBudget& budget = reading->budget;
    const std::size_t nCost = static_cast<std::size_t>(entity->length) + EntityBudget::kPerReference;
    if (budget.bExceeded || nCost > budget.nLeft) {
        budget.bExceeded = true;
        noteFault(*reading, context->input ? context->input->line : 0, "Too many references to entities");
        xmlStopParser(context);
        return nullptr;
    }
    budget.nLeft -= nCost;
    return entity;
}

/// The parser takes a zero character behind the root for the end of the text.
bool isReadToItsEnd(const xmlParserCtxt& context)
{
    return context.input && context.input->cur == context.input->end;
}

} // namespace

std::optional<XmlFault> xmlFault(std::string_view bytes)
{
    XmlFault fault;
    if (parseXml(bytes, nullptr, &fault))
        return std::nullopt;
    return fault;
}

std::shared_ptr<_xmlDoc> parseXml(std::string_view bytes, const char* encoding, XmlFault* fault)
{
    if (bytes.empty() || bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        if (fault)
            *fault = {1, bytes.empty() ? "The file is empty" : "The file is too large"};
        return nullptr;
    }
    const std::unique_ptr<xmlParserCtxt, ParserDeleter> context(xmlNewParserCtxt());
    if (!context)
        throw std::bad_alloc();
    Reading reading;
    context->_private = &reading;
    context->sax->serror = collectFault;
    context->sax->entityDecl = declareInternalEntity;
    context->sax->getEntity = lookUpEntity;
    // XML_PARSE_HUGE is left out on purpose: a catalogue from outside must not exhaust the machine. Entities
    // are replaced as they are read, since the parser limits their growth only then.
    constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING |
                             XML_PARSE_COMPACT | XML_PARSE_BIG_LINES;
    const std::shared_ptr<xmlDoc> document(xmlCtxtReadMemory(context.get(), bytes.data(),
                                                             static_cast<int>(bytes.size()), nullptr,
                                                             encoding, kOptions),
                                           xmlFreeDoc);
    const bool bWellFormed =
        context->wellFormed != 0 && !reading.budget.bExceeded && isReadToItsEnd(*context);
    if (!bWellFormed && fault) {
        noteFault(reading, context->input ? context->input->line : 1,
                  "The text goes on behind a zero character");
        *fault = reading.fault;
    }
    return bWellFormed ? document : nullptr;
}

} // namespace zorvo
