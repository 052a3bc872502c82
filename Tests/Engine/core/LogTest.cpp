#include "Engine/core/Log.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "Tests/Support/TempDirectory.h"

namespace Engine {

namespace {

/// Works in a directory of its own at 9:05:07 on the 3rd of February 2031.
class Log : public testing::Test {
protected:
    Log() {
        manager->setClock([] { return Platform::sLocalTime{2031, 2, 3, 9, 5, 7}; });
    }
    ~Log() override {
        manager->setClock(nullptr);
        setErrorHooks({});
        setErrorHook(nullptr);
    }

    /// The log's text with each counter as "#".
    String readLog(const String& name) {
        const String text = directory.read(name + ".log");
        String result;
        std::size_t from = 0;
        for (std::size_t end; (end = text.find("]\t", from)) != String::npos; from = end + 1)
            result.append(text, from, text.rfind('-', end) + 1 - from).append("#]");
        result.append(text, from);
        return result;
    }

    cTempDirectory directory;
    cWorkingDirectory working{directory};
    cLogManager* manager = cLogManager::getInstance();
    const String header = "\n02/03/31 - 09:05:07 --------------------------------------------------------\n";
};

Int hook_calls = 0;

}  // namespace

TEST_F(Log, writesTimeAndCounterBeforeEachLine) {
    manager->getLog("level", true)->printf("%s has %d men", "Mill", 3);
    manager->getLog("other", true)->printf("100%% %.1f", 0.5);
    EXPECT_EQ(readLog("level"), header + "[9:5:7-#]\tMill has 3 men\n");
    EXPECT_EQ(readLog("other"), header + "[9:5:7-#]\t100% 0.5\n");

    const auto counter = [&](const String& name) {
        const String text = directory.read(name + ".log");
        return std::stoi(text.substr(text.find("-", text.find('[')) + 1));
    };
    EXPECT_EQ(counter("other"), counter("level") + 1);  // one counter for all logs
}

TEST_F(Log, goesOnBehindANewHeaderInASecondRun) {
    manager->getLog("level", true)->printf("first");
    manager->closeLogs();
    manager->getLog("level", true)->printf("second");
    EXPECT_EQ(readLog("level"), header + "[9:5:7-#]\tfirst\n" + header + "[9:5:7-#]\tsecond\n");
}

TEST_F(Log, keepsTheWholeOfALongText) {
    const String call_stack(std::string(5000, 'x') + "end");
    manager->getLog("error", false)->printf("%s", call_stack.c_str());
    EXPECT_EQ(readLog("error"), header + "[9:5:7-#]\t" + call_stack + "\n");
}

TEST_F(Log, writesWideTexts) {
    manager->getLog("wide", true)->printf(u"%s grüßt %S: %3d|%-4u|%.2f|%% %q", u"Мельник", "Mill", -7, 5u, 1.25);
    EXPECT_EQ(readLog("wide"), header + "[9:5:7-#]\tМельник grüßt Mill:  -7|5   |1.25|% %q\n");
    manager->getLog("wide", true)->printf(u"cut %");
    EXPECT_TRUE(readLog("wide").ends_with("\tcut %\n"));
}

TEST_F(Log, saysWhichLogCannotBeOpened) {
    try {
        manager->getLog("no/such/place", true);
        FAIL();
    } catch (const String& text) {
        EXPECT_TRUE(text.ends_with("Unable to open [no/such/place.log] log file.\n")) << text;
    }
}

TEST_F(Log, reportsAnErrorThenEndsTheProgram) {
    std::vector<String> steps;
    hook_calls = 0;
    setErrorHooks({[&] { steps.push_back("quit"); },
                   [&] {
                       steps.push_back("pump");
                       throw String("the pump fails as well");
                   }});
    setErrorHook([] { ++hook_calls; });
    testing::internal::CaptureStderr();
    reportError("boom\nvoid f()", "Error call stack:");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "the pump fails as well\n");
    EXPECT_EQ(readLog("error"), header + "[9:5:7-#]\tboom\nvoid f()\n");
    EXPECT_EQ(steps, (std::vector<String>{"quit", "pump"}));
    EXPECT_EQ(hook_calls, 1);
}

TEST(LastError, namesTheSystemsLastError) {
    errno = ENOENT;
    EXPECT_EQ(lastErrorText(), "No such file or directory");
    errno = 0;
    EXPECT_EQ(lastErrorText(), "");
}

}  // namespace Engine
