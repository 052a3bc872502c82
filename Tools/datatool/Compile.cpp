#include "Engine/core/FileText.h"
#include "Engine/core/MemoryFile.h"
#include "Tools/datatool/Commands.h"
#include "Tools/datatool/FileBytes.h"

namespace Datatool {

using namespace Engine;

namespace {

/// White space that a reader would change stands as a reference. In attributes that is every kind, in text the return.
WString toValue(const WString& text, Bool is_attribute) {
    WString out;
    for (const char16_t unit : xmlEscape(text)) {
        if (unit == u'\r' || (is_attribute && (unit == u'\n' || unit == u'\t')))
            out += u"&#" + toWide(std::to_string(static_cast<unsigned>(unit))) + u";";
        else
            out += unit;
    }
    return out;
}

void writeTag(const String& name, const iXML& tag, WString& out) {
    const WString wide_name = toWide(name);
    out += u'<';
    out += wide_name;
    for (UInt i = 0; i < tag.getAttributeCount(); ++i) {
        const sXMLAttribute attribute = tag.getAttribute(i);
        out += u' ';
        out += attribute.name;
        out += u"=\"";
        out += toValue(WString(attribute.value), true);
        out += u'"';
    }
    out += u'>';
    out += toValue(tag.getWText(), false);
    for (UInt i = 0; i < tag.getTagCount(); ++i) {
        iXML* child = nullptr;
        String child_name;
        tag.get(i, child, &child_name);
        writeTag(child_name, *child, out);
    }
    out += u"</";
    out += wide_name;
    out += u'>';
}

}  // namespace

void compile(const String& in, const String& out) {
    writeFile(out, toBinary(*readXML(in, *openFile(in))));
}

void decompile(const String& in, const String& out) {
    const std::unique_ptr<cXML> document = readXML(in, *openFile(in));
    WString text = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    writeTag("root", *document, text);
    text += u'\n';
    const String narrow = toNarrow(text);
    const BYTES bytes(narrow.begin(), narrow.end());

    // A binary document may hold what text can't say: control characters, names that are none.
    cMemoryFile file(bytes);
    if (toBinary(*readXML(in + ": can't be told in text", file)) != toBinary(*document))
        throw String(in + ": can't be told in text without a change");
    writeFile(out, bytes);
}

}  // namespace Datatool
