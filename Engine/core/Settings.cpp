#include "Engine/core/Settings.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/FileText.h"

namespace Engine {

namespace {

/// Values stand in the file as they are. Only those that would make it unreadable, or come back changed, are escaped.
WString toAttribute(const WString& value) {
    WString text;
    for (const char16_t unit : toXmlText(value)) {
        if (unit == u'\n')
            text += u"&#10;";
        else if (unit == u'\r')
            text += u"&#13;";
        else if (unit == u'\t')
            text += u"&#9;";
        else
            text += unit;
    }
    return text;
}

}  // namespace

cSettings::~cSettings() {
    try {
        save();
    } catch (...) {
        currentFailure();
    }
}

void cSettings::save() const {
    ENGINE_MARK;
    if (!m_filename.empty())
        writeWStringAsXml(m_filename, format());
}

/// One line, sections and keys in sorted order: `<section key="value" key="value" />`.
WString cSettings::format() const {
    WString text = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><main>";
    for (const auto& [section, keys] : m_sections) {
        text.append(u"<").append(toWide(section)).append(u" ");
        for (const auto& [key, value] : keys)
            text.append(toWide(key)).append(u"=\"").append(toAttribute(value)).append(u"\" ");
        text += u"/>";
    }
    text += u"</main>";
    return text;
}

}  // namespace Engine
