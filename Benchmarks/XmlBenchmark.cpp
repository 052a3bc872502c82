// Documents beside their peers, on 10 MB of tags as our data has them.
//
// Each benchmark runs ours and the peer in turn, so that a busy machine slows both, and tells
// - ratio: the peer's time / ours, above 1 where ours is faster
// - ours_MBps, peer_MBps: megabytes of the text document per second
// - bytes_per_byte: heap kept by a read document, per byte of its text

#include <benchmark/benchmark.h>
#include <expat.h>
#include <libxml/parser.h>
#include <malloc.h>

#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "Engine/core/MemoryFile.h"
#include "Engine/core/XML.h"

namespace {

using Engine::cMemoryFile;
using Engine::cXML;

constexpr std::size_t document_size = 10 * 1000 * 1000;

/// A small generator of its own: the document is the same in every run.
class cNumbers {
public:
    unsigned next(unsigned limit) {
        m_state = m_state * 1103515245u + 12345u;
        return (m_state >> 8) % limit;
    }
    std::string text(unsigned limit) { return std::to_string(next(limit)); }

private:
    unsigned m_state = 1;
};

/// A way point with its arcs, as level files have them.
void appendPoint(std::string& out, cNumbers& numbers) {
    out += "    <point x=\"" + numbers.text(800) + "." + numbers.text(10) + "\" y=\"" + numbers.text(600) +
           "\" type=\"" + numbers.text(3) + "\" options=\"0\">\n";
    for (unsigned arcs = numbers.next(4); arcs > 0; --arcs)
        out += "      <arc to=\"" + numbers.text(400) + "\" type=\"" + numbers.text(14) + "\"/>\n";
    out += "    </point>\n";
}

/// A button, as screens have them: keys as children with a text.
void appendButton(std::string& out, cNumbers& numbers) {
    out += "    <button name=\"button_" + numbers.text(1000) + "\">\n      <position>" + numbers.text(800) + "," +
           numbers.text(600) + "</position>\n      <texture>ui/pictures/button_" + numbers.text(100) +
           ".png</texture>\n      <color>ff" + numbers.text(10) + "0" + numbers.text(10) +
           "0ff</color>\n    </button>\n";
}

const std::string& getDocument() {
    static const std::string document = [] {
        std::string out = "<?xml version=\"1.0\"?>\n<level>\n";
        cNumbers numbers;
        for (unsigned section = 0; out.size() < document_size; ++section) {
            const std::string name = section % 2 ? "screen" : "points";
            out += "  <" + name + ">\n";
            for (int i = 0; i < 200; ++i)
                section % 2 ? appendButton(out, numbers) : appendPoint(out, numbers);
            out += "  </" + name + ">\n";
        }
        return out + "</level>\n";
    }();
    return document;
}

cMemoryFile toFile(const std::string& bytes) {
    return cMemoryFile(std::vector<char>(bytes.begin(), bytes.end()));
}

cMemoryFile& getTextFile() {
    static cMemoryFile file = toFile(getDocument());
    return file;
}

cMemoryFile& getBinaryFile() {
    static cMemoryFile file = [] {
        cMemoryFile binary;
        cXML(&getTextFile()).writeBinary(&binary, true);
        return binary;
    }();
    return file;
}

void onStart(void*, const XML_Char*, const XML_Char**) {
}
void onEnd(void*, const XML_Char*) {
}
void onText(void*, const XML_Char*, int) {
}

void parseBare() {
    const std::string& document = getDocument();
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetElementHandler(parser, &onStart, &onEnd);
    XML_SetCharacterDataHandler(parser, &onText);
    benchmark::DoNotOptimize(XML_Parse(parser, document.data(), static_cast<int>(document.size()), 1));
    XML_ParserFree(parser);
}

void readText() {
    benchmark::DoNotOptimize(cXML(&getTextFile()).getTagCount());
}

void readBinary() {
    benchmark::DoNotOptimize(cXML(&getBinaryFile()).getTagCount());
}

xmlDocPtr readLibxml2() {
    return xmlReadMemory(getDocument().data(), static_cast<int>(getDocument().size()), nullptr, nullptr, 0);
}

/// Time of the processor, the system's work for us included: other programs don't count.
double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

template <class WORK>
double secondsOf(WORK work) {
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

/// Runs both in turn and tells how they compare.
template <class OURS, class PEER>
void compare(benchmark::State& state, OURS ours, PEER peer) {
    getBinaryFile();
    double our_seconds = 0.0;
    double peer_seconds = 0.0;
    for (auto _ : state) {
        const double seconds = secondsOf(ours);
        our_seconds += seconds;
        peer_seconds += secondsOf(peer);
        state.SetIterationTime(seconds);
    }
    const double megabytes = static_cast<double>(getDocument().size()) * static_cast<double>(state.iterations()) / 1e6;
    state.counters["ratio"] = peer_seconds / our_seconds;
    state.counters["ours_MBps"] = megabytes / our_seconds;
    state.counters["peer_MBps"] = megabytes / peer_seconds;
}

std::size_t heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Heap that a reader leaves in use, per byte of the text.
template <class READ>
void keepDocument(benchmark::State& state, READ read) {
    getBinaryFile();
    double kept = 0.0;
    for (auto _ : state) {
        const std::size_t before = heapInUse();
        const auto document = read();
        kept = static_cast<double>(heapInUse() - before);
        benchmark::DoNotOptimize(document.get());
    }
    state.counters["bytes_per_byte"] = kept / static_cast<double>(getDocument().size());
}

void TextAgainstBareParser(benchmark::State& state) {
    compare(state, &readText, &parseBare);
}

void TextAgainstLibxml2(benchmark::State& state) {
    compare(state, &readText, [] { xmlFreeDoc(readLibxml2()); });
}

void BinaryAgainstText(benchmark::State& state) {
    compare(state, &readBinary, &readText);
}

void MemoryOfText(benchmark::State& state) {
    keepDocument(state, [] { return std::make_unique<cXML>(&getTextFile()); });
}

void MemoryOfBinary(benchmark::State& state) {
    keepDocument(state, [] { return std::make_unique<cXML>(&getBinaryFile()); });
}

void MemoryOfLibxml2(benchmark::State& state) {
    keepDocument(state, [] { return std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>(readLibxml2(), &xmlFreeDoc); });
}

}  // namespace

BENCHMARK(TextAgainstBareParser)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(3);
BENCHMARK(TextAgainstLibxml2)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(BinaryAgainstText)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(MemoryOfText)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryOfBinary)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryOfLibxml2)->Iterations(1)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
