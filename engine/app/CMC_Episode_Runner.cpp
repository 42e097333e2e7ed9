#include "app/CMC_Episode_Runner.h"

#include "app/CMC_Episode.h"

namespace {

CMC_Episode * episode(Call & call) { return call.self<CMC_Episode>(); }

CMC_Variable * next(Call & call) {
    episode(call)->next();
    return nullptr;
}

CMC_Variable * prev(Call & call) {
    episode(call)->prev();
    return nullptr;
}

CMC_Variable * back(Call & call) {
    episode(call)->back();
    return nullptr;
}

CMC_Variable * restart(Call & call) {
    episode(call)->restart();
    return nullptr;
}

CMC_Variable * goTo(Call & call) {
    episode(call)->CMC_Scene::_goto(call.text(0));
    return nullptr;
}

CMC_Variable * getLatestScene(Call & call) { return result(episode(call)->getLatestScene()); }

CMC_Variable * getCurrentScene(Call & call) {
    CMC_Scene * current = episode(call)->getCurrentScene();
    return result(current ? current->getName() : CXString());
}

constexpr MethodRow kRows[] = {
    {1, "NEXT", "", 0, next},
    {2, "PREV", "", 0, prev},
    {3, "BACK", "", 0, back},
    {4, "RESTART", "", 0, restart},
    {5, "GOTO", "name", 1, goTo},
    {6, "GETLATESTSCENE", "", 0, getLatestScene},
    {7, "GETCURRENTSCENE", "", 0, getCurrentScene},
};

} // namespace

CMC_Episode_Runner::CMC_Episode_Runner() : CMC_Runner(kRows) {}
