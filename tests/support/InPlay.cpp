#include "support/InPlay.h"

#include "script/CMC_Behaviour.h"
#include "script/Notes.h"

#include <set>
#include <sstream>

namespace test {

InPlay::InPlay(platform::Options options) : InWorld(std::move(options)) {
    auto dialogs = std::make_unique<platform::RecordingDialogs>();
    told_ = &dialogs->texts;
    world().dialogs = std::move(dialogs);
    ::notes::reset();
    ::notes::listen([this](const ::notes::Note & note) {
        notes.push_back(std::string(::notes::name(note.kind)) + ": " + note.what);
    });
}

InPlay::~InPlay() {
    end();
    ::notes::listen({});
}

void InPlay::define(const std::string & file, const std::string & lines) {
    std::istringstream in(lines);
    std::set<std::string> seen;
    std::string text;
    for (std::string line; std::getline(in, line);) {
        std::size_t start = line.find_first_not_of(' ');
        if (start == std::string::npos) continue;
        std::size_t blank = line.find(' ', start);
        std::string name = line.substr(start, blank - start);
        if (seen.insert(name).second) text += "OBJECT=" + name + "\n";
        text += name + ":" + line.substr(blank + 1) + "\n";
    }
    put(file, text);
}

bool InPlay::start(const char * commandLine) {
    end();
    over_ = false;
    if (!exists("Dane/application.def"))
        define("Dane/application.def", "GAME TYPE=APPLICATION\n GAME EPISODES=E\n E TYPE=EPISODE\n"
                                       "E SCENES=A,B,C\n A TYPE=SCENE\n B TYPE=SCENE\n C TYPE=SCENE\n");
    world().files->changeDirectory(windowsFolder());
    commandLine_ = std::make_unique<CCommandLine6>(commandLine);
    window_ = std::make_unique<TellingWindow>(commandLine_.get(), &language_, true, *told_);
    if (opensDisplay && window_->CreateSurface(nullptr) != 0) return false;
    window_->OnCreate();
    application_ = std::make_unique<CApplication>(window_.get(), "settings.ini", "", commandLine_.get());
    application_->preinitializeApplication(false);
    if (application_->LastError()) return false;
    window_->OnActivateApp(true);
    return true;
}

void InPlay::end() {
    application_.reset();
    if (window_) window_->OnDestroy();
    window_.reset();
}

void InPlay::tick(int times, unsigned step) {
    for (int i = 0; i < times; i++) {
        over_ = window_->domodal() || over_;
        clock().advance(step);
    }
}

CMC_Scene * InPlay::scene() {
    CUnit6 * unit = CMC_Scene::getDefUnit();
    return unit ? unit->getScene() : nullptr;
}

void InPlay::run(const std::string & code) {
    life::Guard guard; // as in a tick
    CMC_ObjectsContainer * scope = scene();
    CMC_Behaviour behaviour(scope ? scope : &app(), "TEST", CXString(code));
    behaviour.init();
    behaviour.run(nullptr, nullptr, true);
}

std::string InPlay::told() {
    std::string all;
    for (const std::string & each : std::exchange(*told_, {})) all += (all.empty() ? "" : "; ") + each;
    return all;
}

std::string InPlay::told(const std::string & code) {
    told();
    run(code);
    return told();
}

} // namespace test
