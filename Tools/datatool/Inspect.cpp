#include <algorithm>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>

#include "Engine/Ui/Font.h"
#include "Engine/core/ZipFile.h"
#include "Game/Ui/LevelHead.h"
#include "Game/Ui/SaveFile.h"
#include "Tools/datatool/Commands.h"
#include "Tools/datatool/FileBytes.h"
#include "Tools/datatool/ResourceLog.h"
#include "Tools/datatool/Units.h"

namespace Datatool {

using namespace Engine;

namespace {

using JSON = nlohmann::ordered_json;

/// Never inherited from: JSON takes plain standard strings.
std::string toText(const WString& text) {
    return toNarrow(text);
}

JSON toJson(const iXML& tag) {
    JSON json = JSON::object();
    JSON& attributes = json["attributes"] = JSON::object();
    for (UInt i = 0; i < tag.getAttributeCount(); ++i) {
        const sXMLAttribute attribute = tag.getAttribute(i);
        attributes[toNarrow(attribute.name)] = static_cast<std::string>(toNarrow(attribute.value));
    }
    json["text"] = toText(tag.getWText());
    JSON& children = json["children"] = JSON::array();
    for (UInt i = 0; i < tag.getTagCount(); ++i) {
        iXML* child = nullptr;
        String name;
        tag.get(i, child, &name);
        JSON entry{{"name", static_cast<std::string>(name)}};
        entry.update(toJson(*child));
        children.push_back(std::move(entry));
    }
    return json;
}

JSON inspectPack(const String& file) {
    JSON members = JSON::array();
    cZipFile::ZIP_FIND find = cZipFile::findOpen(file);
    cZipFile::sMember member;
    for (Bool more = cZipFile::findFirstFile(find, member); more; more = cZipFile::findNextFile(find, member)) {
        members.push_back({{"name", static_cast<std::string>(member.name)},
                           {"size", member.size},
                           {"packed_size", member.packed_size}});
    }
    cZipFile::findClose(find);
    return {{"format", "pack"}, {"members", std::move(members)}};
}

JSON inspectDocument(const String& name, iFile& file, Bool is_binary) {
    const std::unique_ptr<cXML> document = readXML(name, file);
    std::vector<sLogEntry> entries;
    if (!readResourceLog(*document, entries)) {
        JSON json{{"format", is_binary ? "binary XML" : "text XML"}};
        json.update(toJson(*document));
        return json;
    }
    JSON resources = JSON::array();
    for (const sLogEntry& entry : entries)
        resources.push_back(
            {{"path", static_cast<std::string>(entry.path)}, {"type", static_cast<std::string>(entry.type)}});
    return {{"format", "resource log"}, {"resources", std::move(resources)}};
}

JSON inspectFont(const String& name, const BYTES& bytes) {
    const cFont font(name, std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
    JSON ranges = JSON::array();
    for (const auto& [first, last] : font.getRanges())
        ranges.push_back({{"first", UInt{first}}, {"last", UInt{last}}});
    return {{"format", "font"}, {"glyphs", font.getGlyphCount()}, {"ranges", std::move(ranges)}};
}

JSON tellAward(const sAwardRecord& award) {
    return {{"id", award.id},
            {"obtained", award.obtained != 0},
            {"shown", award.shown != 0},
            {"count", award.data00},
            {"target", award.data01}};
}

/// What the map of levels knows of it.
JSON tellLevel(cLevelState& level) {
    sLevelHead head;
    try {
        head.serialize(*level.createReader());
    } catch (const std::string& reason) {
        throw String("level " + std::to_string(level.getLevel()) + ": " + reason);
    }
    return {{"level", level.getLevel()},
            {"bytes", level.getBytes().size()},
            {"completed", head.completed},
            {"marks", head.marks},
            {"previous_level", head.previous_level}};
}

JSON inspectSave(const String& name, const BYTES& bytes) {
    sSave save;
    if (const String wrong = cSaveFile::fromBytes(bytes, save); !wrong.empty())
        throw String(name + ": " + wrong);
    JSON awards = JSON::array();
    for (const sAwardRecord& award : save.progress.awards)
        awards.push_back(tellAward(award));
    JSON levels = JSON::array();
    try {
        for (auto& [number, level] : save.levels)
            levels.push_back(tellLevel(level));
    } catch (const std::string& reason) {
        throw String(name + ": " + reason);
    }
    return {{"format", "save"},
            {"awards", std::move(awards)},
            {"hints", save.progress.hints},
            {"products", save.products},
            {"levels", std::move(levels)}};
}

/// A save has no head of its own: "00000001.save", and the ones that are kept beside it.
Bool isSaveName(const String& file) {
    const std::string name = std::filesystem::path(std::string(file)).filename().string();
    return name.ends_with(".save") || name.ends_with(".save.bak") || name.ends_with(".save.damaged");
}

/// Enough to tell a format by, so that no large file is read in vain.
BYTES readHead(iFile& file) {
    BYTES head(std::min<std::size_t>(file.getSize(), 64 * 1024));
    head.resize(file.read(head.data(), static_cast<ULong>(head.size())));
    return head;
}

Bool beginsWith(const BYTES& bytes, std::string_view head) {
    return std::string_view(bytes.data(), bytes.size()).starts_with(head);
}

/// A document in text begins with a tag, maybe behind a byte order mark or white space.
Bool looksLikeDocument(const BYTES& bytes) {
    if (beginsWith(bytes, ">") || beginsWith(bytes, "\xFF\xFE") || beginsWith(bytes, "\xFE\xFF"))
        return true;
    std::string_view text(bytes.data(), bytes.size());
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    const std::size_t first = text.find_first_not_of(std::string_view(" \t\r\n\0", 5));
    return first != std::string_view::npos && text[first] == '<';
}

}  // namespace

void inspect(const String& file) {
    const std::unique_ptr<iFile> opened = openFile(file);
    const BYTES head = readHead(*opened);
    JSON json{{"file", static_cast<std::string>(file)}};
    if (isSaveName(file))
        json.update(inspectSave(file, readAll(*openFile(file))));
    else if (beginsWith(head, "PK\3\4") || beginsWith(head, "PK\5\6"))
        json.update(inspectPack(file));
    else if (beginsWith(head, "tnof"))
        json.update(inspectFont(file, readAll(*openFile(file))));
    else if (isUnitFile(head))
        json.update(inspectUnit(file, readAll(*openFile(file))));
    else if (looksLikeDocument(head))
        json.update(inspectDocument(file, *opened, beginsWith(head, ">")));
    else
        throw String(file + ": not a known format");
    std::cout << json.dump(2, ' ', false, JSON::error_handler_t::replace) << '\n';
}

}  // namespace Datatool
