#include "Engine/core/StringManager.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Constants.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/FileText.h"
#include "Engine/core/XML.h"

namespace Engine {

namespace {

const String table_file = "sys/strings.xml";
const String dump_file = "strdubp.xml";

}  // namespace

cStringManager::cStringManager() {
    ENGINE_MARK;
    cConstants::getInstance()->getProperty("game", "DumpStrings", m_dump);
    if (cFileManager::getInstance()->isExist(table_file))
        load();
}

cStringManager::~cStringManager() {
    if (!m_dump)
        return;
    try {
        dump();
    } catch (...) {
        currentFailure();
    }
}

void cStringManager::load() {
    const cXML document(table_file);
    iXML* entry = nullptr;
    for (UInt i = 0; document.get(i, entry); ++i) {
        WString text;
        WString translation;
        if (entry->getNode("text", text) && entry->getNode("translation", translation))
            m_strings.insert_or_assign(std::move(text), std::move(translation));
    }
}

const WString& cStringManager::getString(const WString& text) const {
    static const WString empty;
    if (text.empty())
        return empty;
    if (const auto found = m_strings.find(text); found != m_strings.end())
        return found->second;
    m_unknown.assign(text);
    if (m_dump) {
        m_unknown.insert(0, u"!!!!!!!");
        m_strings.emplace(text, m_unknown);
        m_used.insert(text);
    }
    return m_unknown;
}

/// UTF-16LE without a mark. Only texts that would make the file unreadable are escaped.
void cStringManager::dump() const {
    ENGINE_MARK;
    WString document = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<Strings>";
    for (const WString& used : m_used) {
        const WString text = toXmlText(used);
        document += u"<s>\n<text>" + text + u"</text>\n<translation>" + text + u"</translation>\n</s>";
    }
    document += u"</Strings>";
    const std::unique_ptr<iFile> file = cFileManager::getInstance()->create(dump_file, true);
    writeWStringAsRaw(file.get(), document.data(), static_cast<ULong>(document.size()));
    file->close();
}

}  // namespace Engine
