/// 1,000 lines of 60 letters whose texts change: what laying them out anew costs, beside SFML.
///
/// Ours are cTextLine on the screen, so every letter keeps its place in the drawing order. SFML's are sf::Text, whose
/// getLocalBounds() builds the vertices. Both take turns between the same two texts, in the same font and size, and
/// have seen both before. "word" has blanks, at other places each time, so that letters come and go. "sprites" makes
/// each letter's sprite too, as the frame that draws it does.
///
/// SFML needs a display: xvfb-run bench_text.

#include <benchmark/benchmark.h>

#include <SFML/Graphics.hpp>
#include <fstream>
#include <iterator>
#include <random>

#include "Engine/Ui/TextLine.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Tests/Support/HeadlessProgram.h"

namespace {

using namespace Engine;

constexpr UInt line_count = 1000;
constexpr UInt letter_count = 60;
constexpr UInt font_size = 21;  ///< pixels; that of Data/Fonts/Text.fnt
constexpr char font_file[] = "/usr/share/fonts/truetype/vollkorn/Vollkorn-SemiBold.ttf";

/// Two texts for each line, all of the same number of visible letters.
/// @param word  letters between two blanks, about; 0 for no blanks
std::vector<WString> makeTexts(UInt word) {
    std::mt19937 random(1);
    std::vector<WString> texts(line_count * 2);
    for (WString& text : texts) {
        for (UInt i = 0; i < letter_count; ++i) {
            if (word > 0 && i > 0 && random() % word == 0)
                text += u' ';
            text += static_cast<char16_t>(u'a' + random() % 26);
        }
    }
    return texts;
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void ours(benchmark::State& state) {
    cHeadlessProgram program;
    program.write("t.fnt", readFile(BRINDLE_SOURCE_DIR "/Data/Fonts/Text.fnt"));
    program.write("t.png", readFile(BRINDLE_SOURCE_DIR "/Data/Fonts/Text.png"));
    program.start();
    cResourceManager& resources = *cResourceManager::getInstance();
    const auto font = cResourceRef::adopt(resources.getFont("t.fnt"));
    const auto atlas = cResourceRef::adopt(resources.getTexture("t.png"));
    const std::vector<WString> texts = makeTexts(static_cast<UInt>(state.range(0)));
    std::vector<cTextLine*> lines;
    for (UInt i = 0; i < line_count; ++i) {
        lines.push_back(new cTextLine(nullptr));
        lines.back()->setLocalized(false);
        lines.back()->setFont(font.get());
        lines.back()->setTexture(atlas.get());
        lines.back()->setPosition({400.0f, static_cast<Float>(i) * 0.5f});
        lines.back()->show();
    }
    UInt turn = 0;
    const auto layOut = [&] {
        for (UInt i = 0; i < line_count; ++i) {
            lines[i]->setText(texts[i * 2 + turn]);
            benchmark::DoNotOptimize(lines[i]->getWidth());
        }
        turn = 1 - turn;
    };
    layOut();
    layOut();
    for (auto _ : state) {
        layOut();
        if (state.range(1) > 0)
            UI::getDrawSet().walk([](cControl* letter) {
                if (!letter->isBlank())
                    benchmark::DoNotOptimize(letter->getSprite().u0);
            });
    }
    state.SetItemsProcessed(state.iterations() * line_count * letter_count);
}

void sfml(benchmark::State& state) {
    sf::Font font;
    if (!font.loadFromFile(font_file))
        return state.SkipWithError("the font is missing: fonts-vollkorn");
    std::vector<sf::String> texts;
    for (const WString& text : makeTexts(static_cast<UInt>(state.range(0))))
        texts.push_back(sf::String::fromUtf16(text.begin(), text.end()));
    std::vector<sf::Text> lines;
    for (UInt i = 0; i < line_count; ++i) {
        lines.emplace_back("", font, font_size);
        lines.back().setPosition(400.0f, static_cast<Float>(i) * 0.5f);
    }
    UInt turn = 0;
    const auto layOut = [&] {
        for (UInt i = 0; i < line_count; ++i) {
            lines[i].setString(texts[i * 2 + turn]);
            benchmark::DoNotOptimize(lines[i].getLocalBounds().width);
        }
        turn = 1 - turn;
    };
    layOut();
    layOut();
    for (auto _ : state)
        layOut();
    state.SetItemsProcessed(state.iterations() * line_count * letter_count);
}

}  // namespace

BENCHMARK(ours)->ArgNames({"word", "sprites"})->ArgsProduct({{0, 6}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(sfml)->ArgName("word")->Arg(0)->Arg(6)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
