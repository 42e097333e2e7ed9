#include "files/InGame.h"
#include "script/CMElement.h"
#include "script/CMElementCreator.h"
#include "sequence/CRandomPlayable.h"
#include "sequence/CSequencedPlayable.h"

#include <functional>
#include <map>
#include <utility>

namespace {

std::string heard; // what happened, in order

// Something that plays until it is told to end.
class Tune : public CPlayable {
public:
    explicit Tune(const char * name, bool wait = true, bool short_ = false)
        : CPlayable(nullptr), short_(short_) {
        setName(name);
        setWaitMode(wait);
    }
    using CPlayable::play;
    void play() override {
        heard += name() + "(" + std::string(getParam().view()) + ") ";
        status_ = kPlaying;
        if (short_) end();
    }
    void stop(bool report) override {
        if (isPlaying()) heard += name() + (report ? "! " : ". ");
        CPlayable::stop(report);
    }
    void pause() override { heard += name() + "pause "; }
    void resume() override { heard += name() + "resume "; }
    void setPosition(int x, int y) override {
        heard += name() + std::to_string(x) + "," + std::to_string(y) + " ";
        CPlayable::setPosition(x, y);
    }
    void setVisibility(bool on) override {
        heard += name() + (on ? "on " : "off ");
        CPlayable::setVisibility(on);
    }
    void setVolume(int volume) override {
        heard += name() + "v" + std::to_string(volume) + " ";
        CPlayable::setVolume(volume);
    }
    void setFrequency(int) override { heard += name() + "f "; }
    int getEventsNumber() override { return static_cast<int>(events.size()); }
    void playEvent(int event, int flag) override {
        heard += std::to_string(flag) + ":";
        playEvent(CXString(events[static_cast<std::size_t>(event)]));
    }
    void playEvent(const CXString & event) override {
        heard += std::string(event.view()) + " ";
        status_ = event == "dud" ? kStopped : kPlaying;
    }
    Kind getKind() override { return kSound; }
    void end() {
        status_ = kStopped;
        notify(kFinished);
    }
    std::string name() const { return std::string(getName().view()); }

    std::vector<const char *> events;

private:
    bool short_; // ends as soon as it has begun
};

// Writes down what it is told.
class Ear : public CPlayableObserver {
public:
    explicit Ear(const char * name, bool answer = true) : name_(name), answer_(answer) {}
    bool onPlayableStarted(CPlayable *) override { return told("1"); }
    bool onPlayableTick(CPlayable *) override { return told("2"); }
    bool onPlayableFinished(CPlayable *) override { return told("3"); }
    bool onPlayableResumed(CPlayable *) override { return told("4"); }
    std::function<void()> act;

private:
    bool told(const char * what) {
        heard += std::string(name_) + what + " ";
        if (act) act();
        return answer_;
    }
    const char * name_;
    bool answer_;
};

class Playables : public test::InGame {
protected:
    Playables() { heard.clear(); }
    std::string take() { return std::exchange(heard, {}); }
};

} // namespace

TEST_F(Playables, NotifiersAreToldInOrder) {
    Ear x("x"), y("y", false), z("z");
    Tune tune("a");
    EXPECT_TRUE(tune.notify(CPlayable::kStarted)); // nobody
    tune.setGenericNotifier(&z);
    tune.addNotifier(&x);
    tune.addNotifier(&y);
    tune.addNotifier(&x);
    for (int code = 0; code <= 5; code++) EXPECT_TRUE(tune.notify(code));
    EXPECT_EQ(take(), "x1 y1 z1 x2 y2 z2 x3 y3 z3 x4 y4 z4 ");
    tune.setGenericNotifier(nullptr);
    EXPECT_FALSE(tune.notify(CPlayable::kTick)); // the last answer
    take();

    x.act = [&] { tune.removeNotifier(&x), tune.addNotifier(&z); };
    tune.notify(CPlayable::kFinished);
    EXPECT_EQ(take(), "x3 y3 ");
    tune.notify(CPlayable::kFinished);
    EXPECT_EQ(take(), "y3 z3 ");
    tune.setNotifier(&x);
    EXPECT_EQ(tune.getNotifiers()->size, 1);
}

TEST_F(Playables, PlayTakesTheParameter) {
    Ear ear("x");
    Tune tune("a");
    tune.addNotifier(&ear);
    tune.addEvent("1", "WALK");
    tune.setParameter("2", "RUN");
    tune.addEvent("1", "STAND");
    tune.play("1");
    EXPECT_EQ(tune.getEvent(), "STAND");
    EXPECT_EQ(tune.getParam(), "1");
    tune.play("2");
    EXPECT_EQ(take(), "a(1) a. a(2) ");
    tune.play("3");
    EXPECT_EQ(tune.getEvent(), "");
    EXPECT_EQ(tune.getStatus(), CPlayable::kPlaying);
    EXPECT_FALSE(tune.isParent());
    tune.addParent();
    EXPECT_TRUE(tune.isParent());
    tune.subParent();
    tune.subParent();
    EXPECT_FALSE(tune.isParent());
}

TEST_F(Playables, ASequencePlaysInOrder) {
    Ear ear("x");
    Tune a("a"), b("b", false), c("c"), d("d");
    CSequencedPlayable sequence(nullptr);
    sequence.addNotifier(&ear);
    for (Tune * tune : {&a, &b, &c, &d}) sequence.addChild(tune);
    sequence.setVolume(-7);
    take();
    sequence.play("P");
    EXPECT_EQ(take(), "x1 a(P) av-7 ");
    EXPECT_EQ(sequence.getPlaying(), &a);
    a.end();
    EXPECT_EQ(take(), "b(P) bv-7 c(P) cv-7 "); // b isn't waited for
    b.end();
    EXPECT_EQ(take(), "");
    sequence.next();
    EXPECT_EQ(take(), ""); // c still plays
    c.end();
    sequence.pause();
    sequence.resume();
    EXPECT_EQ(take(), "d(P) dv-7 dpause dresume ");
    d.end();
    EXPECT_EQ(take(), "x3 ");
    EXPECT_FALSE(sequence.isPlaying());
    EXPECT_EQ(sequence.getPlaying(), nullptr);
    a.end(); // of a play of its own
    EXPECT_EQ(take(), "");

    sequence.play("Q");
    take();
    sequence.stop(true);
    EXPECT_EQ(take(), "a! x3 ");
    sequence.play("Q");
    take();
    sequence.stop(false);
    EXPECT_EQ(take(), "a. ");
    sequence.setFrequency(22050);
    take();
    sequence.play("Q");
    EXPECT_EQ(take(), "x1 a(Q) av-7 af ");
}

TEST_F(Playables, ChildrenThatEndAtOnce) {
    Ear ear("x");
    Tune a("a", true, true), b("b", false, true), c("c", true, true), d("d", false);
    CSequencedPlayable sequence(nullptr), empty(nullptr), open(nullptr);
    for (CSequencedPlayable * each : {&sequence, &empty, &open}) each->addNotifier(&ear);
    for (Tune * tune : {&a, &b, &c}) sequence.addChild(tune);
    sequence.play("");
    EXPECT_EQ(take(), "x1 a() b() c() x3 cv0 bv0 av0 ");
    empty.play("");
    EXPECT_EQ(take(), "x1 ");
    EXPECT_FALSE(empty.isPlaying());
    open.addChild(&d); // not waited for, but the last one
    open.play("");
    EXPECT_EQ(take(), "x1 d() dv0 ");
    EXPECT_TRUE(open.isPlaying());
    d.end();
    EXPECT_EQ(take(), "x3 ");
    ear.act = [&] { open.stop(false); };
    open.play("");
    EXPECT_EQ(take(), "x1 ");
}

TEST_F(Playables, OneAtRandomOrByParameter) {
    Ear ear("x");
    Tune a("a"), b("b"), c("c");
    CSequencedPlayable sequence(nullptr);
    sequence.addNotifier(&ear);
    for (Tune * tune : {&a, &b, &c}) sequence.addChild(tune);
    sequence.setMode(CSequencedPlayable::kRandom);
    std::map<CPlayable *, int> played;
    for (int i = 0; i < 60; i++) {
        sequence.play("");
        auto * tune = static_cast<Tune *>(sequence.getPlaying());
        played[tune]++;
        take();
        tune->end();
        EXPECT_EQ(take(), "x3 ");
        EXPECT_FALSE(sequence.isPlaying());
    }
    EXPECT_EQ(played.size(), 3u);

    sequence.setMode(CSequencedPlayable::kByParameter);
    sequence.play("b");
    EXPECT_EQ(take(), "x1 b(b) bv0 ");
    b.end();
    EXPECT_EQ(take(), "x3 ");
    sequence.play("d");
    EXPECT_EQ(take(), "x1 ");
    EXPECT_FALSE(sequence.isPlaying());
}

TEST_F(Playables, TreesOfSequences) {
    Tune a("a"), b("b");
    auto gone = std::make_unique<Tune>("gone");
    CSequencedPlayable outer(nullptr), inner(nullptr);
    inner.setName("inner");
    outer.addChild(&a);
    outer.addChild(&inner);
    inner.addChild(&b);
    inner.addChild(gone.get());
    inner.addChild(&outer); // a ring is none
    EXPECT_EQ(inner.getCount(), 2);
    EXPECT_EQ(outer.get("b"), &b);
    EXPECT_EQ(outer.get("x"), nullptr);
    EXPECT_TRUE(outer.accure(&b) && !inner.accure(&a));
    std::unique_ptr<CXVector> sounds(outer.getAllOfType(CPlayable::kSound)), none(outer.getAllAnimations());
    EXPECT_EQ(sounds->size, 3);
    EXPECT_EQ(none->size, 0);

    b.addEvent("P", "WAVE");
    EXPECT_EQ(outer.getLastPlayedEvent("b"), "");
    outer.play("P");
    a.end();
    EXPECT_EQ(outer.getPlaying(), &b);
    EXPECT_EQ(outer.getLastPlayedEvent("b"), "WAVE");
    EXPECT_EQ(outer.getLastPlayedEvent("nobody"), "");
    take();
    outer.move(1, 2);
    outer.setPosition(5, 6);
    outer.hide();
    EXPECT_EQ(take(), "a1,2 b1,2 gone1,2 a5,6 b5,6 gone5,6 aoff boff goneoff ");
    b.end();
    EXPECT_EQ(outer.getPlaying(), gone.get());
    gone.reset(); // while it plays
    EXPECT_EQ(inner.getCount(), 1);
    EXPECT_FALSE(inner.isPlaying());
    EXPECT_TRUE(outer.getBoundingBox(7).IsEmpty());
    outer.stop(true);
}

TEST_F(Playables, SequencesOfDefinitions) {
    CMElement element("S"), first("ONE"), second("TWO"), odd("ODD");
    element.addProperty("TYPE", "SEQUENCE");
    element.addProperty("MODE", "RANDOM");
    for (CMElement * below : {&first, &second, &odd}) {
        below->addProperty("TYPE", below == &odd ? "NOTHING" : "SEQUENCE");
        element.addChild(below);
    }
    std::unique_ptr<CPlayable> made(CMElementCreator::createPlayable(&window_, &element));
    auto * sequence = dynamic_cast<CSequencedPlayable *>(made.get());
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->getCount(), 2);
    EXPECT_EQ(sequence->getMode(), CSequencedPlayable::kRandom);
    EXPECT_EQ(sequence->get("TWO")->getParent(), sequence);
    EXPECT_EQ(sequence->get("TWO")->getMode(), CSequencedPlayable::kInOrder);
}

namespace {

class Host : public CRandomPlayableNotifier {
public:
    bool onRandomPlayableStarted(CPlayable *, int done) override {
        heard += "s" + std::to_string(done) + " ";
        if (act) act();
        return may;
    }
    bool onRandomPlayableFinished(CPlayable *, int done) override {
        heard += "f" + std::to_string(done) + " ";
        return again;
    }
    bool may = true, again = false;
    std::function<void()> act;
};

class RandomPlayables : public Playables {
protected:
    // Seconds of the window's timer.
    void wait(int seconds) {
        for (int i = 0; i < seconds; i++) {
            clock().advance(1000);
            window_.getTimer()->domodal();
        }
    }
};

} // namespace

TEST_F(RandomPlayables, PlayAfterARandomWait) {
    CRandomPlayable player(&window_, nullptr);
    Host host;
    Tune tune("a");
    tune.events = {"dud", "one"};
    player.add(&tune, 6, 0, ""); // every ten seconds at most
    wait(30);
    EXPECT_EQ(take(), ""); // nobody allowed it
    player.remove(&tune);
    player.addNotifier(&host);
    player.add(&tune, 6, 0, "one");
    wait(10);
    EXPECT_EQ(take(), "s1 one ");
    wait(100);
    EXPECT_EQ(take(), ""); // it plays on
    for (int i = 0; i < 20; i++) {
        tune.end();
        wait(10);
        EXPECT_EQ(take(), "f1 s1 one ");
    }
    host.may = false;
    tune.end();
    wait(100);
    EXPECT_EQ(take(), "f1 s1 "); // silent from then on
    player.remove(&tune);
    tune.end();
    EXPECT_EQ(take(), "");
}

TEST_F(RandomPlayables, EventsAreDrawnUntilOnePlays) {
    CRandomPlayable player(&window_, nullptr);
    Host host;
    Tune tune("a"), duds("b"), plain("c");
    tune.events = {"dud", "dud", "one", "two"};
    duds.events = {"dud"};
    player.addNotifier(&host);
    player.add(&tune, 60, 0, "");
    std::map<std::string, int> ends;
    for (int i = 0; i < 60; i++) {
        wait(1);
        std::string text = take();
        ends[text.substr(text.size() - 7)]++;
        tune.end();
        take();
    }
    EXPECT_GT(ends["15:one "], 10);
    EXPECT_GT(ends["15:two "], 10);
    player.remove(&tune);
    player.add(&duds, 1000, 0, "");
    wait(1);
    std::string ten = "s1 ";
    for (int i = 0; i < 10; i++) ten += "15:dud ";
    EXPECT_EQ(take(), ten);
    player.remove(&duds);
    player.add(&plain, 60, 0, ""); // has no events
    wait(1);
    EXPECT_EQ(take(), "s1 c() ");
}

TEST_F(RandomPlayables, SeriesGoOnAfterASecond) {
    CRandomPlayable player(&window_, nullptr);
    Host host;
    Tune tune("a");
    player.addNotifier(&host);
    player.add(&tune, 0.5, 6, "e"); // once in two minutes, up to four more
    int longest = 0, series = 0;
    wait(120);
    for (int i = 0; i < 100; i++) {
        EXPECT_TRUE(tune.isPlaying()) << i;
        take();
        tune.end();
        wait(1);
        if (take().ends_with("s1 e ") || !tune.isPlaying()) {
            series++;
            wait(119);
            take();
        } else {
            longest++;
        }
    }
    EXPECT_GT(series, 10);
    EXPECT_GT(longest, series / 2);
    host.again = true; // the notifier's word counts too
    for (int i = 0; i < 20; i++) {
        tune.end();
        wait(1);
        EXPECT_TRUE(tune.isPlaying());
    }
}

TEST_F(RandomPlayables, WhatGoesWhileItIsTold) {
    Host host;
    auto tune = std::make_unique<Tune>("a");
    CRandomPlayable player(&window_, nullptr);
    player.addNotifier(&host);
    player.add(tune.get(), 60, 0, "");
    host.act = [&] { tune.reset(); };
    wait(3);
    EXPECT_EQ(take(), "s1 ");
    Tune other("b");
    player.add(&other, 60, 0, "");
    host.act = [&] { player.remove(&other); };
    wait(3);
    EXPECT_EQ(take(), "s1 ");
    {
        CRandomPlayable shorter(&window_, nullptr);
        shorter.add(&other, -1, -5, "");
        shorter.add(nullptr, 1, 1, "");
        wait(2);
    }
    wait(2);
    EXPECT_EQ(other.getNotifiers()->size, 0);
}
