#include "app/Describe.h"

#include "app/CMC_Application.h"
#include "app/CMC_Episode.h"
#include "app/CMC_Scene.h"
#include "script/CMC_Runner.h"
#include "script/CMC_RunnerFactory.h"
#include "script/TypeTable.h"

namespace {

using Words = std::span<const char * const>;

std::string page;

void line(std::string_view type, const char * kind, const char * word) {
    ((((page += type) += '\t') += kind) += '\t') += word;
}

void words(std::string_view type, const char * kind, Words list) {
    for (const char * each : list) {
        line(type, kind, each);
        page += '\n';
    }
}

void methods(std::string_view type, const char * kind, std::span<const MethodRow> rows) {
    for (const MethodRow & row : rows) {
        if (!row.name) continue;
        line(type, kind, row.name);
        page += "\t" + std::to_string(row.id) + "\t" + row.parameters + "\n";
    }
}

void runnerOf(std::string_view type, int id, const char * kind = "method") {
    if (CMC_Runner * runner = CMC_RunnerFactory::getRunner(id)) methods(type, kind, runner->rows());
}

} // namespace

std::string describe() {
    CMC_RunnerFactory::initialize();
    page.clear();
    methods("*", "method", CMC_Runner::commonRows());
    runnerOf("@", types::kNone, "statement");
    for (const TypeRow & row : typetable::rows()) {
        words(row.word, "key", row.keys);
        words(row.word, "signal", row.signals);
        // An expression stands for its value and answers by the value's methods.
        if (row.id != types::kExpression) runnerOf(row.word, row.id);
    }
    // These aren't made by a definition of a scene.
    words("APPLICATION", "key", CMC_Application::kOwnKeys);
    words("APPLICATION", "key", CMC_Scene::kKeys);
    words("APPLICATION", "signal", CMC_Application::kSignals);
    runnerOf("APPLICATION", types::kApplication);
    words("EPISODE", "key", CMC_Episode::kOwnKeys);
    words("EPISODE", "key", CMC_Scene::kKeys);
    words("EPISODE", "signal", CMC_Scene::kSignals);
    runnerOf("EPISODE", types::kEpisode);
    words("SCENE", "key", CMC_Scene::kKeys);
    words("SCENE", "signal", CMC_Scene::kSignals);
    runnerOf("SCENE", types::kScene);
    runnerOf("RANDOM", types::kRandom);
    runnerOf("SYSTEM", types::kSystem);
    runnerOf("CNVLOADER", types::kCnvLoader);
    CMC_RunnerFactory::done();
    return page;
}
