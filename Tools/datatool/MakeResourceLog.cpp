// A resource log from what documents name, for the loading screens.
#include <filesystem>
#include <iostream>
#include <set>
#include <vector>

#include "Engine/core/FileNames.h"
#include "Engine/core/FileText.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/TextConvert.h"
#include "Engine/core/XML.h"
#include "Tools/datatool/Commands.h"
#include "Tools/datatool/FileBytes.h"

namespace Datatool {

using namespace Engine;

namespace {

/// Gathers names, each once, documents before what they name.
class cGatherer {
public:
    explicit cGatherer(const String& directory) : m_directory(directory) {}

    /// Throws "<name>: no such file", and what reading a document throws.
    void add(const String& name) {
        const eResourceType type = toResourceType(name);
        if (type == eResourceType::none)
            throw name + ": no resource that the game can load";
        if (!isFile(name))
            throw name + ": no such file in " + m_directory;
        if (!m_known.insert(toFileKey(name)).second)
            return;
        m_entries.emplace_back(name, type);
        if (type == eResourceType::xml)
            addNamed(*readXML(name, *openFile(m_directory + name)));
    }

    void print() const {
        std::cout << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<ResourceLog>\n";
        for (const auto& [name, type] : m_entries)
            std::cout << "    <Tag Path=\"" << toNarrow(toXmlText(toWide(name))) << "\" Type=\""
                      << static_cast<UInt>(type) << "\"/>\n";
        std::cout << "</ResourceLog>\n";
    }

private:
    bool isFile(const String& name) const { return std::filesystem::is_regular_file(std::string(m_directory + name)); }

    /// Every attribute that is the name of a file there.
    void addNamed(const iXML& xml) {
        for (UInt i = 0; i < xml.getAttributeCount(); ++i) {
            const String value = toNarrow(WString(xml.getAttribute(i).value));
            if (toResourceType(value) != eResourceType::none && isInnerName(value) && isFile(value))
                add(value);
        }
        for (UInt i = 0; i < xml.getTagCount(); ++i) {
            iXML* child = nullptr;
            xml.get(i, child);
            addNamed(*child);
        }
    }

    String m_directory;  ///< with a trailing "/"
    std::set<String> m_known;
    std::vector<std::pair<String, eResourceType>> m_entries;
};

}  // namespace

void makeResourceLog(const String& directory, const std::vector<String>& names) {
    if (!std::filesystem::is_directory(std::string(directory)))
        throw String(directory + ": no such directory");
    cGatherer gatherer(directory.ends_with('/') ? directory : String(directory + "/"));
    for (const String& name : names)
        gatherer.add(name);
    gatherer.print();
}

}  // namespace Datatool
