#include "Engine/core/ResourceManager.h"

#include <gtest/gtest.h>

#include "Engine/core/FileManager.h"
#include "Engine/core/XML.h"
#include "Tests/Support/DataDirectory.h"

namespace Engine {

namespace {

Int live = 0;                ///< resources that exist
std::vector<String> events;  ///< device resets as the resources saw them

/// A resource of any kind that keeps its file's text.
class cText : public iResource {
public:
    cText(const String& name, eResourceType type) : iResource(name), m_type(type) {
        ++live;
        const auto file = cFileManager::getInstance()->open(name);
        m_text.resize(file->getSize());
        file->read(m_text.data(), static_cast<ULong>(m_text.size()));
    }
    ~cText() override {
        --live;
        if (m_uses)
            m_uses->release();
    }
    eResourceType getType() const override { return m_type; }
    void preUpdate() override { events.push_back("-" + getName()); }
    void update() override { events.push_back("+" + getName()); }

    const String& getText() const { return m_text; }
    void use(iResource* other) { m_uses = other; }

private:
    eResourceType m_type;
    String m_text;
    iResource* m_uses = nullptr;
};

class ResourceManager : public testing::Test {
protected:
    ResourceManager() {
        data.write("sys/constants.xml", R"(<constants><game app_directory="App"/></constants>)");
        for (const char* name : {"b.png", "a.png", "x.fnt", "s.ogg", "doc.xml"})
            data.write(name, "<r/>");
        files = std::make_unique<cFileManager>(data.getPath(), "pack", home.getPath());
        resources = std::make_unique<cResourceManager>();
        live = 0;
        events.clear();
        addKind(eResourceType::texture, true);
        addKind(eResourceType::font, true);
        addKind(eResourceType::sound, false);
    }

    void addKind(eResourceType type, Bool is_graphics) {
        resources->registerLoader(
            type, [type](const String& name) { return std::make_unique<cText>(name, type); }, is_graphics);
    }

    std::set<String> getNames() const {
        std::set<String> names;
        resources->getResourceNames(names);
        return names;
    }

    cTempDirectory data;
    cTempDirectory home;
    std::unique_ptr<cFileManager> files;
    std::unique_ptr<cResourceManager> resources;
};

}  // namespace

TEST_F(ResourceManager, sharesOneObjectPerName) {
    iResource* first = resources->getTexture("A.png");
    EXPECT_EQ(resources->getTexture("a.PNG"), first);
    EXPECT_EQ(resources->getResource("a.png"), first);
    EXPECT_FALSE(first->release());
    EXPECT_FALSE(first->release());
    EXPECT_TRUE(first->release());
    EXPECT_EQ(live, 1);  // cached at count 0
    EXPECT_EQ(resources->getTexture("a.png"), first);
    EXPECT_EQ(resources->getResourceName(first), "a.png");
    EXPECT_EQ(resources->getResource("a.txt"), nullptr);
}

TEST_F(ResourceManager, entersNothingThatFails) {
    EXPECT_THROW(resources->getTexture("no.png"), String);
    EXPECT_THROW(resources->getMesh("a.mesh"), String);  // no loader
    resources->getTexture("a.png");
    EXPECT_THROW(resources->getFont("a.png"), const char*);
    const iResource* const unknown = nullptr;
    EXPECT_THROW(resources->getResourceName(unknown), const char*);
    EXPECT_EQ(getNames(), (std::set<String>{"a.png"}));
}

TEST_F(ResourceManager, deletesOnlyWhatNobodyHolds) {
    auto* user = static_cast<cText*>(resources->getTexture("a.png"));
    user->use(resources->getTexture("b.png"));
    resources->getFont("x.fnt")->release();
    resources->clearUseless();
    EXPECT_EQ(getNames(), (std::set<String>{"a.png", "b.png"}));
    user->release();
    resources->clear();  // a lets b go while the list is walked
    EXPECT_EQ(getNames(), (std::set<String>{}));
    EXPECT_EQ(live, 0);
}

TEST_F(ResourceManager, unloadsByNameAndByKind) {
    resources->getTexture("a.png");
    resources->unloadUselessResource("A.png");
    EXPECT_EQ(live, 1);
    resources->getTexture("b.png")->release();
    resources->unloadUselessResource("B.png");
    resources->getSound("s.ogg");
    resources->deleteAllSoundResource();
    EXPECT_EQ(getNames(), (std::set<String>{"a.png"}));
    resources = nullptr;
    EXPECT_EQ(live, 0);
}

TEST_F(ResourceManager, takesDeviceResourcesThroughAResetInTheOrderOfTheirMaking) {
    resources->getFont("x.fnt");
    resources->getTexture("b.png");
    resources->getTexture("a.png");
    resources->getSound("s.ogg");
    resources->preResetGraphics();
    resources->restoreGraphics();
    EXPECT_EQ(events, (std::vector<String>{"-x.fnt", "-b.png", "-a.png", "+x.fnt", "+b.png", "+a.png"}));
    events.clear();
    resources->refresh();
    EXPECT_EQ(events, (std::vector<String>{"-a.png", "+a.png", "-b.png", "+b.png"}));
}

TEST_F(ResourceManager, readsAFileAnewOnceItWasWritten) {
    auto* old = static_cast<cText*>(resources->getTexture("a.png"));
    const auto file = files->create("A.PNG", true);
    file->write("new", 3);
    EXPECT_EQ(resources->getTexture("a.png"), old);  // not yet closed
    file->close();
    auto* fresh = static_cast<cText*>(resources->getTexture("a.png"));
    EXPECT_EQ(fresh->getText(), "new");
    EXPECT_EQ(old->getText(), "<r/>");  // still its holder's
    old->release();
    old->release();
    resources->clear();
    EXPECT_EQ(live, 1);
}

TEST_F(ResourceManager, forgetsAResourceThatDies) {
    iResource* const texture = resources->getTexture("a.png");
    resources->releaseResource(texture);
    const std::unique_ptr<iResource> own(texture);
    EXPECT_EQ(getNames(), (std::set<String>{}));
    resources->preResetGraphics();
    EXPECT_TRUE(events.empty());
}

TEST_F(ResourceManager, loadsAgainWhatALogNames) {
    data.write("odd&'name.png", "");
    files = nullptr;
    files = std::make_unique<cFileManager>(data.getPath(), "pack", home.getPath());
    resources->getTexture("odd&'name.png");
    resources->getFont("x.fnt");
    EXPECT_EQ(resources->getXML("DOC.xml")->getName(), "doc.xml");
    resources->resourcesToLog("log.xml");
    EXPECT_EQ(home.read("App/log.xml"), toBytes(u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<ResourceLog>\n"
                                                u"<Tag Path=\"doc.xml\" Type=\"1\" />\n"
                                                u"<Tag Path=\"odd&amp;&apos;name.png\" Type=\"0\" />\n"
                                                u"<Tag Path=\"x.fnt\" Type=\"2\" />\n</ResourceLog>"));
    const std::set<String> names = getNames();
    resources = nullptr;

    const cXML log("log.xml");
    resources = std::make_unique<cResourceManager>();
    addKind(eResourceType::texture, true);
    addKind(eResourceType::font, true);
    resources->logToResources(&log, 0, 1);
    EXPECT_EQ(getNames(), (std::set<String>{"doc.xml"}));
    resources->logToResources(&log, 1, 1000);
    EXPECT_EQ(getNames(), names);
    resources->clearUseless();  // all at count 0
    EXPECT_EQ(getNames(), (std::set<String>{}));
}

// The last but one is of a kind that nobody loads, as sounds are in a silent program.
TEST_F(ResourceManager, passesOverWhatALogCannotMean) {
    data.write("log.xml", R"(<ResourceLog><Tag Path="a.png" Type="8"/><Tag Path="b.png" Type="x"/><Tag/>
                             <Tag Path="a.mesh" Type="5"/><Tag Path="x.fnt" Type="2"/></ResourceLog>)");
    files = nullptr;
    files = std::make_unique<cFileManager>(data.getPath(), "pack", home.getPath());
    const cXML log("log.xml");
    resources->logToResources(&log, 0, 5);
    EXPECT_EQ(getNames(), (std::set<String>{"x.fnt"}));
}

}  // namespace Engine
