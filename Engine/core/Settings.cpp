#include "Engine/core/Settings.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/FileText.h"

namespace Engine {

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
            text.append(toWide(key)).append(u"=\"").append(toXmlAttribute(value)).append(u"\" ");
        text += u"/>";
    }
    text += u"</main>";
    return text;
}

}  // namespace Engine
