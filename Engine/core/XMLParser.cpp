#include "Engine/core/XMLParser.h"

#include <expat.h>

#include <cstdlib>
#include <exception>
#include <memory>

#include "Engine/core/CallStack.h"
#include "Engine/core/FileText.h"
#include "Engine/core/LargePages.h"

namespace Engine {

static_assert(sizeof(XML_Char) == sizeof(char16_t), "the parser's build with 16-bit characters is linked");

namespace {

/// A chain of entities, each naming the next, takes a level of the parser's stack per entity.
constexpr UInt most_entities = 1000;

/// One parse: the handlers' user data.
struct sParse {
    XML_Parser parser;
    cXMLBuilder& builder;
    String failure;  ///< ours, found in a handler; the parser has its own
    std::exception_ptr exception;
    UInt entity_count = 0;
};

const char16_t* toWideUnits(const XML_Char* text) {
    return reinterpret_cast<const char16_t*>(text);
}

/// Runs the body of a handler. Exceptions must not pass through the parser's frames: they stop it and are told later.
template <class BODY>
void handle(void* user_data, BODY body) {
    sParse& parse = *static_cast<sParse*>(user_data);
    if (parse.exception || !parse.failure.empty())
        return;
    try {
        body(parse);
        return;
    } catch (const std::string& text) {
        parse.failure = text;
    } catch (const char* text) {
        parse.failure = text;
    } catch (...) {
        parse.exception = std::current_exception();
    }
    XML_StopParser(parse.parser, XML_FALSE);
}

void XMLCALL onStartElement(void* user_data, const XML_Char* name, const XML_Char** atts) {
    handle(user_data, [&](sParse& parse) {
        cXMLBuilder& builder = parse.builder;
        builder.openTag(builder.intern(toWideUnits(name)));
        for (; *atts; atts += 2) {
            const std::u16string_view value = toWideUnits(atts[1]);
            builder.addAttribute(builder.intern(toWideUnits(atts[0])), value.data(), value.size());
        }
        builder.endAttributes();
    });
}

void XMLCALL onEndElement(void* user_data, const XML_Char*) {
    handle(user_data, [](sParse& parse) { parse.builder.closeTag(); });
}

void XMLCALL onDataElement(void* user_data, const XML_Char* s, int len) {
    handle(user_data, [&](sParse& parse) { parse.builder.addText(s, static_cast<std::size_t>(len)); });
}

void XMLCALL onEntityDeclaration(void* user_data, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                                 const XML_Char*, const XML_Char*, const XML_Char*) {
    handle(user_data, [](sParse& parse) {
        if (++parse.entity_count > most_entities)
            throw String("more than " + std::to_string(most_entities) + " entities are declared");
    });
}

String describeFailure(const sParse& parse) {
    const XML_LChar* error = XML_ErrorString(XML_GetErrorCode(parse.parser));
    const String text = !parse.failure.empty() ? parse.failure : String(error ? error : "unknown error");
    return text + " line " + std::to_string(XML_GetCurrentLineNumber(parse.parser)) + " char " +
           std::to_string(XML_GetCurrentColumnNumber(parse.parser));
}

}  // namespace

void parseXMLText(iFile& file, ULong size, cXMLBuilder& builder) {
    ENGINE_MARK;
    // The parser's own memory holds the whole file.
    const XML_Memory_Handling_Suite memory{&allocateForFilling, &std::realloc, &std::free};
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate_MM(nullptr, &memory, nullptr), &XML_ParserFree);
    if (!parser)
        throw std::bad_alloc();
    sParse parse{parser.get(), builder, {}, nullptr};
    XML_SetUserData(parser.get(), &parse);
    XML_SetElementHandler(parser.get(), &onStartElement, &onEndElement);
    XML_SetCharacterDataHandler(parser.get(), &onDataElement);
    XML_SetEntityDeclHandler(parser.get(), &onEntityDeclaration);
    // One read and one final chunk, in the parser's own memory: it would copy what lies elsewhere.
    void* buffer = XML_GetBuffer(parser.get(), static_cast<int>(size));
    if (!buffer)
        throw std::bad_alloc();
    readStringAsRaw(&file, static_cast<char*>(buffer), size);
    if (XML_ParseBuffer(parser.get(), static_cast<int>(size), 1) == XML_STATUS_OK)
        return;
    if (parse.exception)
        std::rethrow_exception(parse.exception);
    throw describeFailure(parse);
}

}  // namespace Engine
