#include "Engine/core/FileManager.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

#include "Engine/core/AtomicFile.h"
#include "Tests/Support/TempDirectory.h"

namespace Engine {

namespace {

const std::string constants = R"(<?xml version="1.0"?><constants><game app_directory="App\Dir\"/></constants>)";

String readAll(iFile& file) {
    String text;
    text.resize(file.getSize());
    text.resize(file.read(text.data(), static_cast<ULong>(text.size())));
    return text;
}

/// A data directory and a writable one, both empty but for the constants that the manager asks for.
class FileManager : public testing::Test {
protected:
    FileManager() { data.write("sys/constants.xml", constants); }

    cFileManager& start() {
        files = nullptr;
        files = std::make_unique<cFileManager>(data.getPath(), "pack", home.getPath());
        return *files;
    }

    String read(const String& name) { return readAll(*files->open(name)); }

    void write(const String& name, const String& text) {
        const auto file = files->create(name, true);
        file->write(text.data(), static_cast<ULong>(text.size()));
        file->close();
    }

    template <class F>
    String failureOf(F action) {
        try {
            action();
        } catch (const String& text) {
            return text;
        } catch (const char* text) {
            return text;
        }
        return "nothing was thrown";
    }

    cTempDirectory data;
    cTempDirectory home;
    cWorkingDirectory working{home};
    const String app = "App/Dir/";
    std::unique_ptr<cFileManager> files;
};

}  // namespace

TEST_F(FileManager, takesLooseCommonThenCommonPackThenRootPackThenLooseRoot) {
    for (const char* name : {"1", "2", "3", "4", "5"})
        data.write(String(name) + ".txt", "root");
    data.writePack("b.pack", {{"2.txt", "root b"}, {"3.txt", "root b"}, {"4.txt", "root b"}, {"5.txt", "root b"}});
    data.writePack("A.pack", {{"2.txt", "root a"}});
    home.writePack(app + "patch.pack", {{"4.txt", "patch"}, {"5.txt", "patch"}});
    home.write(app + "5.txt", "own");
    start();
    EXPECT_EQ(read("1.txt"), "root");
    EXPECT_EQ(read("2.txt"), "root b");  // the later pack, letter case aside
    EXPECT_EQ(read("3.txt"), "root b");
    EXPECT_EQ(read("4.txt"), "patch");
    EXPECT_EQ(read("5.txt"), "own");
    EXPECT_FALSE(files->isCommonExist("4.txt"));
    EXPECT_TRUE(files->isCommonExist("5.txt"));

    files->deleteFile("5.txt");
    EXPECT_EQ(read("5.txt"), "patch");
}

TEST_F(FileManager, knowsNamesInAnySpellingWhereverTheyLie) {
    data.write("UI/Logo.TXT", "loose");
    data.writePack("art.PACK", {{"Levels/One.Lvl", "packed"}});
    home.write(app + "My.Save", "saved");
    start();
    EXPECT_EQ(read("ui\\logo.txt"), "loose");
    EXPECT_EQ(read("LEVELS/ONE.LVL"), "packed");
    EXPECT_EQ(read("my.save"), "saved");
    EXPECT_FALSE(files->isExist("art.pack"));

    write("MY.SAVE", "again");  // goes over the file that is there, not beside it
    EXPECT_EQ(home.read(app + "My.Save"), "again");
    EXPECT_FALSE(home.has(app + "my.save"));

    const String long_name = String(std::string(300, 'N')) + ".txt";
    EXPECT_FALSE(files->isExist(long_name));
    EXPECT_EQ(failureOf([&] { files->open("No.txt"); }), "File \"No.txt\" not found.");
}

TEST_F(FileManager, indexesOnlyWhatCanBeAFile) {
    data.write(".hidden.txt", "");
    data.write(".git/config.txt", "");
    data.write("sub/inner.pack", "no pack at all");
    data.writePack("a.pack", {{"dir/", ""},
                              {"dir/x.txt", "x"},
                              {"../evil.txt", "e"},
                              {"/abs.txt", "e"},
                              {"c:/drive.txt", "e"},
                              {"a\\..\\..\\b.txt", "e"}});
    start();
    FILE_NAME_LIST names;
    files->getIndexedFilenames("", names, true);
    EXPECT_EQ(names, (FILE_NAME_LIST{"dir/x.txt", "sys/constants.xml"}));
    EXPECT_NE(home.read("files.log").find("'a.pack': member '../evil.txt' is left out"), String::npos);
}

TEST_F(FileManager, endsWhereLinksLeadInCircles) {
    data.write("a/x.txt", "x");
    std::filesystem::create_directory_symlink("..", std::string(data / "a/up"));
    std::filesystem::create_directory_symlink("/", std::string(data / "a/top"));
    std::filesystem::create_directory_symlink("a", std::string(data / "b"));
    std::filesystem::create_symlink("nowhere", std::string(data / "a/dead.txt"));
    start();
    FILE_NAME_LIST names;
    files->getIndexedFilenames("", names, true);
    EXPECT_EQ(names, (FILE_NAME_LIST{"a/x.txt", "b/x.txt", "sys/constants.xml"}));
}

TEST_F(FileManager, namesThePackThatCannotBeRead) {
    data.writePack("good.pack", {{"x.txt", "x"}});
    data.write("broken.pack", data.read("good.pack").substr(0, 40));
    EXPECT_EQ(failureOf([&] { start(); }), data / "broken.pack is cannot be opened.");
}

TEST_F(FileManager, changesAFileOnlyWhenItIsClosed) {
    data.write("a.txt", "shipped");
    start();
    const auto file = files->create("Sub\\..a.txt", true);
    {
        const auto lost = files->create("a.txt", true);
        lost->write("half", 4);
        EXPECT_EQ(read("a.txt"), "shipped");
    }
    EXPECT_EQ(read("a.txt"), "shipped");
    EXPECT_FALSE(files->isCommonExist("a.txt"));

    write("a.txt", "own");
    EXPECT_EQ(read("A.TXT"), "own");
    EXPECT_EQ(home.read(app + "a.txt"), "own");
    { files->create("a.txt", true)->write("half", 4); }
    EXPECT_EQ(home.read(app + "a.txt"), "own");
    FILE_NAME_LIST left;
    files->getFileList(home / app, left, false);
    EXPECT_EQ(left, (FILE_NAME_LIST{home / app + "a.txt"}));

    files->deleteFile("a.txt");
    EXPECT_EQ(read("a.txt"), "shipped");
    EXPECT_FALSE(files->isCommonExist("a.txt"));
    write("new.txt", "");
    EXPECT_TRUE(files->isExist("new.txt"));
    files->deleteFile("new.txt");
    EXPECT_FALSE(files->isExist("new.txt"));
}

TEST_F(FileManager, goesOnInAFileThatIsNotOverwritten) {
    start();
    write("log.txt", "one");
    const auto file = files->create("log.txt", false);
    EXPECT_EQ(readAll(*file), "one");
    file->write(" two", 4);
    file->seek(0, iFile::from_start);
    file->write("O", 1);
    file->close();
    file->write("lost", 4);
    EXPECT_EQ(read("log.txt"), "One two");
}

TEST_F(FileManager, refusesWhatCannotBeWrittenAndSaysWhy) {
    start();
    EXPECT_EQ(failureOf([&] { files->create("../out.txt", true); }),
              "File \"../out.txt\" can't be creating. The name leads out of the writable directory.");
    EXPECT_FALSE(home.has("App/out.txt"));
    write("dir/x.txt", "x");
    EXPECT_EQ(failureOf([&] { files->create("dir", true); }), "File \"dir\" can't be creating. Is a directory");
    const auto first = files->create("x.txt", true);
    EXPECT_EQ(failureOf([&] { files->create("x.txt", true); }),
              "File \"x.txt\" can't be creating. Resource temporarily unavailable");
}

TEST_F(FileManager, keepsTheOldFileWhenTheDiskIsFull) {
    start();
    write("a.save", "old");
    const auto file = files->create("a.save", true);
    const std::vector<char> much(1 << 20);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1 << 16, limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    file->write(much.data(), static_cast<ULong>(much.size()));
    const String failure = failureOf([&] { file->close(); });
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(failure, "File \"" + home.getPath() + app + "a.save\" can't be written. File too large");
    EXPECT_EQ(read("a.save"), "old");
    EXPECT_FALSE(home.has(app + ".a.save.new"));
}

TEST_F(FileManager, movesARealFileIntoTheTree) {
    start();
    home.write("Outside.txt", "moved");
    files->moveFile(home / "Outside.txt", "Sub/In.txt");
    EXPECT_EQ(read("sub/in.txt"), "moved");
    EXPECT_FALSE(home.has("Outside.txt"));

    // From a file system in memory: mostly another one than that of temporary files.
    if (const std::string other = "/dev/shm/brindle_test_" + std::to_string(::getpid());
        std::ofstream(other) << "far") {
        files->moveFile(other, "sub/in.txt");
        EXPECT_EQ(read("Sub/In.txt"), "far");
        EXPECT_FALSE(std::filesystem::exists(other));
    }
    EXPECT_EQ(failureOf([&] { files->moveFile("/no/such", "x.txt"); }),
              "File \"/no/such\" can't be moved into \"x.txt\" No such file or directory");
}

TEST_F(FileManager, listsNamesByPrefixAndByDirectory) {
    data.write("saves/shipped.save", "");
    home.write(app + "saves/a.save", "");
    home.write(app + "saves/b.save", "");
    home.write(app + "saves/deep/c.save", "");
    start();
    write("saves/new.pack", "not a pack before the next start");
    FILE_NAME_LIST names;
    files->getFilesNames("Saves", names);
    EXPECT_EQ(names, (FILE_NAME_LIST{"a.save", "b.save"}));
    names.clear();
    files->getIndexedFilenames("saves/", names, true);
    EXPECT_EQ(names.size(), 5u);
    names.clear();
    files->getIndexedFilenames("SAVES/A.save", names, false);
    files->getIndexedFilenames("saves/", names, false);
    EXPECT_EQ(names, (FILE_NAME_LIST{"saves/a.save"}));
    names.clear();
    files->getFileList(home / app + "saves", names, true);
    EXPECT_EQ(names.size(), 4u);
}

TEST_F(FileManager, namesItsWritableDirectoryAfterTheGame) {
    EXPECT_EQ(start().getCommonDirectory(), home.getPath() + app);
    EXPECT_TRUE(home.has(app));
    data.write("sys/constants.xml", R"(<constants><game window_title="Title"/></constants>)");
    EXPECT_EQ(start().getCommonDirectory(), home / "Title/");
    data.write("sys/constants.xml", "<constants><game/></constants>");
    EXPECT_EQ(failureOf([&] { start(); }), "app_directory not defined.");
    data.write("sys/constants.xml", R"(<constants><game app_directory="../x"/></constants>)");
    EXPECT_EQ(failureOf([&] { start(); }),
              "sys/constants.xml: the app_directory '../x' leads out of the writable directory.");
}

TEST(FileNames, cutsNamesAtTheirLastMark) {
    EXPECT_EQ(getFileExt("A.b.PNG"), "png");
    EXPECT_EQ(getFileExt("noext"), "");
    EXPECT_EQ(getFileName("Dir/Sub/File.TXT"), "file.txt");
    EXPECT_EQ(getFileName("File"), "file");
}

}  // namespace Engine
