#include <array>
#include <iostream>
#include <span>
#include <string_view>

#include "Tools/datatool/Commands.h"
#include "Tools/datatool/FileBytes.h"

namespace {

constexpr int exit_done = 0;
constexpr int exit_failed = 1;  ///< the data or the run is at fault
constexpr int exit_usage = 2;

constexpr std::string_view help = R"(datatool: look into the game's data, check it, pack it

  datatool inspect FILE            what FILE holds, as JSON: a document (text or binary XML), a resource log,
                                   a pack's directory, a mesh, an animation, a font; a player's save, by its name
  datatool check DIR               one line for each fault in a data directory: documents, pictures, meshes,
                                   animations, fonts, sounds and packs that can't be read, names that clash, files that
                                   documents name and nobody has, what is missing that the game needs to start; levels
                                   that can't be loaded, played or won; looks, sounds and texts that the game will ask for
                                   and not find; keys and tags that nothing reads, with the one that may be meant
  datatool compile IN.xml OUT.xml  a document in its binary form, which loads faster
  datatool decompile IN.xml OUT.xml
                                   the binary form as text again; it reads back to the same tree
  datatool pack DIR OUT.pack       all files below DIR as a pack; the same files give the same bytes
  datatool reslog DIR NAME...      a resource log for the loading screens, to standard output: these files of the data
                                   directory, and all that documents among them name and theirs in turn
  datatool --help                  this text

Exit status: 0 done, no fault found; 1 the data or the run is at fault; 2 wrong usage.
)";

using ARGUMENTS = std::span<const char* const>;

struct sCommand {
    std::string_view name;
    std::size_t argument_count;
    bool takes_more;  ///< any number of the last one
    bool (*run)(ARGUMENTS arguments);
};

constexpr std::array<sCommand, 6> commands{{
    {"inspect", 1, false, [](ARGUMENTS a) { return Datatool::inspect(a[0]), true; }},
    {"check", 1, false, [](ARGUMENTS a) { return Datatool::check(a[0]); }},
    {"compile", 2, false, [](ARGUMENTS a) { return Datatool::compile(a[0], a[1]), true; }},
    {"decompile", 2, false, [](ARGUMENTS a) { return Datatool::decompile(a[0], a[1]), true; }},
    {"pack", 2, false, [](ARGUMENTS a) { return Datatool::pack(a[0], a[1]), true; }},
    {"reslog", 2, true,
     [](ARGUMENTS a) {
         return Datatool::makeResourceLog(a[0], {a.begin() + 1, a.end()}), true;
     }},
}};

int fail(const std::string& text) {
    std::cerr << "datatool: " << Datatool::toLine(text) << '\n';
    return exit_failed;
}

/// A String names its file; what else may come (no memory, a stream that ends) does not.
int run(const sCommand& command, ARGUMENTS arguments) {
    const std::string file = std::string(arguments[0]) + ": ";
    try {
        const bool is_clean = command.run(arguments);
        if (!std::cout.flush())
            return fail(file + "what it holds can't be written to standard output");
        return is_clean ? exit_done : exit_failed;
    } catch (const std::string& text) {
        return fail(text);
    } catch (const char* text) {
        return fail(file + text);
    } catch (const std::exception& error) {
        return fail(file + error.what());
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::span<char* const> words(argv, static_cast<std::size_t>(argc));
    const std::string_view name = argc > 1 ? words[1] : "";
    if (name == "--help") {
        std::cout << help;
        return exit_done;
    }
    for (const sCommand& command : commands) {
        const std::size_t count = words.size() - 2;
        if (command.name == name &&
            (count == command.argument_count || (command.takes_more && count > command.argument_count)))
            return run(command, ARGUMENTS(words.data() + 2, count));
    }
    std::cerr << "datatool: wrong usage, see datatool --help\n";
    return exit_usage;
}
