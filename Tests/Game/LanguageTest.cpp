// Every text that the player can see has a translation in each language that ships, and every character of both has a
// glyph in the font that shows it.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "Engine/Ui/Font.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Keys.h"
#include "Engine/core/RealFile.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/XML.h"
#include "Tests/Support/TempDirectory.h"

using namespace Engine;

namespace {

using TABLE = std::map<WString, WString>;

/// A text and the font that shows it; no font where that is chosen elsewhere.
struct sShown {
    String file;
    WString text;
    String font;
    Bool localized = true;
};

void walk(const iXML& tag, const std::function<void(const iXML&)>& visit) {
    visit(tag);
    for (UInt i = 0; i < tag.getTagCount(); ++i) {
        iXML* child = nullptr;
        tag.get(i, child);
        walk(*child, visit);
    }
}

Bool hasLetters(const WString& text) {
    return std::any_of(text.begin(), text.end(),
                       [](char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c >= 0xC0; });
}

class Language : public ::testing::Test {
protected:
    Language() : files(BRINDLE_SOURCE_DIR "/Data", "pack", directory / "home/") {
        cRealFile file(BRINDLE_SOURCE_DIR "/Assets/languages/russian/sys/strings.xml", cRealFile::access_read,
                       cRealFile::eCreating::open_existing);
        const cXML russian(&file);
        for (UInt i = 0; i < russian.getTagCount(); ++i) {
            iXML* entry = nullptr;
            russian.get(i, entry);
            WString text;
            WString translation;
            entry->getNode("text", text);
            entry->getNode("translation", translation);
            EXPECT_TRUE(table.emplace(text, translation).second) << toNarrow(text) << " is there twice";
        }
        gatherScreens();
        gatherNamed("GameStrings.xml");
        gatherNamed("YesNoStrings.xml");
    }

    void gatherScreens() {
        FILE_NAME_LIST names;
        for (const char* folder : {"ui/", "gameui/", "gamelogic/"})
            files.getIndexedFilenames(folder, names, true);
        for (const String& name : names) {
            if (getFileExt(name) != "xml")
                continue;
            const cXML document(name);
            walk(document, [&](const iXML& tag) {
                for (const char16_t* key : {u"String", u"StringOK", u"StringNew", u"StringConfirm"}) {
                    sShown found{name, {}, {}};
                    if (!findKey(tag, key, found.text))
                        continue;
                    readKey(tag, u"Font", found.font);
                    readKey(tag, u"Localized", found.localized);
                    shown.push_back(found);
                }
            });
        }
    }

    void gatherNamed(const String& name) {
        const cXML document(name);
        walk(document, [&](const iXML& tag) {
            if (!tag[u"id"].empty())
                shown.push_back({name, tag[u"value"], {}});
        });
    }

    cTempDirectory directory;
    cFileManager files;
    cResourceManager resources;
    TABLE table;
    std::vector<sShown> shown;
};

}  // namespace

TEST_F(Language, everyTextIsTranslated) {
    EXPECT_GT(shown.size(), 30u);
    for (const sShown& text : shown) {
        const Bool needed = text.localized && hasLetters(text.text);
        EXPECT_TRUE(!needed || table.contains(text.text)) << text.file << ": " << toNarrow(text.text);
    }
}

TEST_F(Language, nothingIsTranslatedThatNobodySays) {
    std::set<WString> said;
    for (const sShown& text : shown)
        said.insert(text.text);
    for (const auto& [text, translation] : table) {
        EXPECT_TRUE(said.contains(text)) << toNarrow(text);
        EXPECT_FALSE(translation.empty()) << toNarrow(text);
    }
}

TEST_F(Language, everyCharacterHasAGlyph) {
    std::map<String, std::unique_ptr<cFont>> fonts;
    for (const sShown& line : shown) {
        if (line.font.empty())
            continue;
        std::unique_ptr<cFont>& font = fonts[line.font];
        if (!font)
            font = std::make_unique<cFont>(line.font);
        const auto translation = table.find(line.text);
        for (const WString& text : {line.text, translation == table.end() ? WString() : translation->second}) {
            for (const char16_t c : text)
                EXPECT_TRUE(c == u' ' || c == u'\n' || c == 0xA0 || font->getGlyph(c))
                    << line.file << ": " << toNarrow(text) << " needs U+" << std::hex << static_cast<UInt>(c) << " in "
                    << line.font;
        }
    }
    EXPECT_FALSE(fonts.empty());
}
