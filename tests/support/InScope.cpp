#include "support/InScope.h"

#include "files/CTextFileReader.h"
#include "script/CMC_Behaviour.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"

#include <set>
#include <utility>

namespace test {

InScope::InScope(const char * commandLine) : commandLine_(commandLine) {
    auto dialogs = std::make_unique<platform::RecordingDialogs>();
    dialogs_ = dialogs.get();
    world().dialogs = std::move(dialogs);
    ::notes::reset();
    ::notes::listen([this](const ::notes::Note & note) {
        notes.push_back(std::string(::notes::name(note.kind)) + ": " + note.what);
    });
    window_ =
        std::make_unique<CWindow>(nullptr, &commandLine_, &language_, CXSize(800, 600), nullptr, "", true);
    CMC_VariableFactory::initialize();
    CMC_RunnerFactory::initialize();
    scope_ = std::make_unique<CMC_ObjectsContainer>(window_.get(), nullptr, CXString("SCENE"), types::kScene);
    scope_->setScene(scope_.get());
}

InScope::~InScope() {
    scope_->unload();
    scope_.reset();
    CMC_Behaviour::doneTrash();
    CMC_RunnerFactory::done();
    CMC_VariableFactory::done();
    ::notes::listen({});
}

void InScope::load(const std::string & definitions) {
    std::string text = definitions;
    CTextFileReader reader(window_.get(), text.data(), static_cast<int>(text.size()));
    std::unique_ptr<CMElements> elements(CMElementsLoader::load(window_.get(), &reader));
    std::vector<life::Handle> before, now;
    for (int i = 0; i < scope_->getElementsNo(); i++) before.emplace_back(scope_->getObject(i));
    delete scope_->resolveObjects(elements.get());
    // An old object may be gone, and its place be another's.
    std::set<CMC_Object *> old;
    for (const life::Handle & each : before) old.insert(each.get());
    for (int i = 0; i < scope_->getElementsNo(); i++)
        if (!old.contains(scope_->getObject(i))) now.emplace_back(scope_->getObject(i));
    for (const life::Handle & each : now)
        if (CMC_Object * object = each.get()) object->init();
}

bool InScope::run(const std::string & code, const std::vector<std::string> & arguments) {
    auto * args = new CXArray(101, 0.75F);
    for (const std::string & each : arguments) args->add(new CXString(each));
    CMC_Behaviour behaviour(scope_.get(), "TEST", CXString(code));
    behaviour.init();
    bool broken = behaviour.run(nullptr, arguments.empty() ? nullptr : args, true);
    CXString::releaseToVector(args);
    return broken;
}

void InScope::tick(int times, unsigned step) {
    for (int i = 0; i < times; i++) {
        clock().advance(step);
        window_->getTimer()->domodal();
    }
}

std::vector<std::string> InScope::boxes() { return std::exchange(dialogs_->texts, {}); }

std::string InScope::shown(const std::string & code) {
    boxes();
    run(code);
    std::string all;
    for (const std::string & each : boxes()) all += (all.empty() ? "" : "; ") + each;
    return all;
}

} // namespace test
