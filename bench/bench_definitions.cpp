// Reading definitions, beside a bare walk over the same lines: MB a second, and how many times longer reading
// takes than that walk.

#include "files/CTextFileReader.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>

namespace {

constexpr std::size_t kText = 10'000'000;

// As games write them: a few keys an element, some with a script behind them.
std::string objects() {
    std::string text = "# scene\n";
    for (int i = 0; text.size() < kText; i++) {
        std::string name = "ANNHERO" + std::to_string(i);
        text += "OBJECT=" + name + "\n";
        text += name + ":TYPE=ANIMO\n";
        text += name + ":FILENAME=HERO" + std::to_string(i % 97) + ".ANN\n";
        text += name + ":TOCANVAS=TRUE\n";
        text += name + ":VISIBLE=FALSE\n";
        text += name + ":PRIORITY=" + std::to_string(i % 500) + "\n";
        text += name + ":MONITORCOLLISION=FALSE\n";
        text += name + ":ONFINISHED^WALK={" + name + "^PLAY(\"STAND\");VARSTEP^ADD(1);}\n";
    }
    return text;
}

// As little an element as there is any use for.
std::string variables() {
    std::string text;
    for (int i = 0; text.size() < kText; i++) {
        std::string name = "VARSTEP" + std::to_string(i);
        text += "OBJECT=" + name + "\n" + name + ":TYPE=INTEGER\n" + name + ":VALUE=0\n";
    }
    return text;
}

std::string oneLiners() {
    std::string text;
    for (int i = 0; text.size() < kText; i++)
        text += "DEF=BEHCLICK" + std::to_string(i) + "(TYPE=BEHAVIOUR|CODE={@IF(\"VARA'" + std::to_string(i) +
                "\",\"{ANNHERO^HIDE();}\",\"\");})\n";
    return text;
}

std::string keysOfOne() {
    std::string text = "OBJECT=A\n";
    for (int i = 0; text.size() < kText; i++)
        text += "A:KEY" + std::to_string(i) + (i % 2 ? "\n" : "=VALUE\n");
    return text;
}

std::string continued() {
    std::string text = "OBJECT=A\nA:CODE=";
    while (text.size() < kText) text += "\tANNHERO^PLAY(\"STAND\"); /\n";
    return text + "\n";
}

std::size_t walk(const std::string & text) {
    std::size_t lines = 0;
    const char * at = text.data();
    const char * end = at + text.size();
    while (const void * feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at))) {
        at = static_cast<const char *>(feed) + 1;
        lines++;
    }
    return lines;
}

double seconds(auto && work) {
    std::clock_t start = std::clock(); // of this process alone, whatever else the machine does
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void load(benchmark::State & state, std::string (*make)()) {
    const std::string text = make();
    double loading = 0, walking = 0;
    for (auto _ : state) {
        CTextFileReader reader(nullptr, text.data(), static_cast<int>(text.size()));
        std::unique_ptr<CMElements> elements;
        double took = seconds([&] { elements.reset(CMElementsLoader::load(nullptr, &reader)); });
        benchmark::DoNotOptimize(elements->size);
        loading += took;
        state.SetIterationTime(took);
        walking += seconds([&] { benchmark::DoNotOptimize(walk(text)); });
    }
    state.counters["MB/s"] = static_cast<double>(text.size() * state.iterations()) / loading / 1e6;
    state.counters["times_walk"] = loading / walking;
}

} // namespace

BENCHMARK_CAPTURE(load, objects, objects)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, variables, variables)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, one_liners, oneLiners)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, keys_of_one, keysOfOne)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, one_logical_line, continued)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
