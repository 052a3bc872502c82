#include "Game/Entry.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "Engine/Ui/View.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Engine.h"
#include "Engine/core/Logic.h"
#include "Engine/platform/headless/HeadlessPlatform.h"
#include "Game/Ui/Preload.h"
#include "Game/Ui/StartScreen.h"
#include "Tests/Support/TempDirectory.h"

using namespace Engine;

namespace {

/// The whole program on a copy of the real data, each frame 20 ms, in a current directory of its own.
class Entry : public ::testing::Test {
protected:
    Entry() : platform(directory / "brindle", directory / "home/") {
        std::filesystem::copy(BRINDLE_SOURCE_DIR "/Data", std::string(directory / "Data"),
                              std::filesystem::copy_options::recursive);
        platform.setOnIdle([this] {
            platform.advance(20);
            ++frames;
            if (on_frame)
                on_frame();
            if (frames > 5000)
                platform.postMessage({Platform::eMessage::quit, 0});
        });
    }

    String errorLog() const { return directory.read("error.log"); }
    void click() {
        platform.pushMouseButton(0, true);
        platform.pushMouseButton(0, false);
    }

    cTempDirectory directory;
    cWorkingDirectory working{directory};
    Platform::cHeadlessPlatform platform;
    int frames = 0;
    std::function<void()> on_frame;
};

}  // namespace

TEST_F(Entry, showsThreeLogosOfFourSecondsThenTheStartScreenAndLeavesByEsc) {
    int start_screen = 0;
    on_frame = [&] {
        if (cStartScreen::getInstance() && start_screen == 0)
            start_screen = frames;
        if (start_screen > 0 && frames == start_screen + 100)
            platform.pushKey(1, false);
    };
    EXPECT_EQ(runGame(platform), 0);
    EXPECT_NEAR(start_screen, 3 * 4.0 / 0.02, 10);  // a logo's last frame is the first at or after its time
    EXPECT_LT(frames, start_screen + 110);
    EXPECT_EQ(errorLog(), "");
    EXPECT_FALSE(cView::isValid(cStartScreen::getInstance()));
    EXPECT_TRUE(directory.has("home/brindle/sys/settings.xml"));
}

// A press and its release count once: three clicks pass the three logos.
TEST_F(Entry, eachClickSkipsOneLogo) {
    int clicks = 0;
    on_frame = [&] {
        if (frames % 10 == 0 && !cStartScreen::getInstance()) {
            click();
            ++clicks;
        }
        if (frames == 100)
            platform.postMessage({Platform::eMessage::close, 0});
    };
    EXPECT_EQ(runGame(platform), 0);
    EXPECT_EQ(clicks, 3);
}

TEST_F(Entry, goesOnWithoutLogos) {
    std::filesystem::remove(std::string(directory / "Data/Logo.jpg"));
    std::filesystem::remove(std::string(directory / "Data/logos.pack"));
    directory.write("Data/UI/logo.xml", "<Logo Visible=\"1\" Enable=\"1\"/>");
    Bool seen = false;
    on_frame = [&] {
        seen = seen || cStartScreen::getInstance();
        if (frames == 20)
            platform.postMessage({Platform::eMessage::close, 0});
    };
    EXPECT_EQ(runGame(platform), 0);
    EXPECT_TRUE(seen);
    EXPECT_EQ(errorLog(), "");
}

TEST_F(Entry, tellsThePlayerOfAFailureInAFrameAndEndsInOrder) {
    struct cFaulty : cView {
        using cView::cView;
        void process() override {
            ENGINE_MARK_TEXT("void cFaulty::process()");
            throw "the wheel came off";
        }
    };
    on_frame = [&] {
        if (frames == 5) {
            auto* faulty = new cFaulty(nullptr);
            faulty->show();
            faulty->enable();
        }
    };
    EXPECT_EQ(runGame(platform), 0);
    ASSERT_EQ(platform.getMessageBoxes().size(), 1u);
    EXPECT_NE(platform.getMessageBoxes()[0].find(u"error.log"), WString::npos);
    EXPECT_NE(errorLog().find("the wheel came off\nvoid cFaulty::process()\n"), String::npos);
    EXPECT_EQ(cEngine::getInstance(), nullptr);
    EXPECT_TRUE(directory.has("home/brindle/sys/settings.xml"));
    EXPECT_EQ(callStackText(), "");
}

TEST_F(Entry, keepsDamagedSettingsAsideAndUsesTheShippedOnes) {
    directory.write("home/brindle/sys/settings.xml", "<main><graphics wid");
    on_frame = [&] {
        if (frames == 2)
            platform.postMessage({Platform::eMessage::close, 0});
    };
    EXPECT_EQ(runGame(platform), 0);
    EXPECT_EQ(errorLog(), "");
    EXPECT_EQ(directory.read("home/brindle/sys/settings.xml.damaged"), "<main><graphics wid");
    EXPECT_GT(directory.read("home/brindle/sys/settings.xml").size(), 100u);
}

struct sBroken {
    const char* name;
    const char* file;
    const char* text;      ///< null removes the file
    const char* expected;  ///< in the log
};

class BrokenData : public Entry, public ::testing::WithParamInterface<sBroken> {};

TEST_P(BrokenData, endsTheProgramWithOneClearErrorAndTheSettingsIntact) {
    const sBroken& broken = GetParam();
    directory.write("home/brindle/sys/settings.xml", "<main><graphics width=\"800\" height=\"600\"/></main>");
    const String path = directory / (String("Data/") + broken.file);
    if (broken.text)
        directory.write(String("Data/") + broken.file, broken.text);
    else
        std::filesystem::remove(std::string(path));
    EXPECT_EQ(runGame(platform), 0);
    EXPECT_NE(errorLog().find(broken.expected), String::npos) << errorLog();
    EXPECT_NE(directory.read("home/brindle/sys/settings.xml").find("8"), String::npos);
    EXPECT_EQ(cEngine::getInstance(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Files, BrokenData,
    ::testing::Values(
        sBroken{"constantsMissing", "sys/constants.xml", nullptr, "File \"sys/constants.xml\" not found."},
        sBroken{"constantsCut", "sys/constants.xml", "<main><game app_direc", "filename: sys/constants.xml"},
        sBroken{"constantsWithoutDirectory", "sys/constants.xml", "<main/>", "app_directory not defined."},
        sBroken{"packCut", "logos.pack", "PK\3\4 and then nothing", "logos.pack is cannot be opened."},
        sBroken{"screenMissing", "ui/start.xml", "<main", "filename: ui/start.xml"},
        sBroken{"pictureTorn", "logo.jpg", "\xFF\xD8\xFF\xE0 no more", "logo.jpg"}),
    [](const auto& param_info) { return std::string(param_info.param.name); });
