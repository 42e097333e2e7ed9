#include "graphics/CAnimo6.h"

#include "Picture.h"
#include "files/CFile.h"
#include "graphics/AnnFile.h"
#include "graphics/CAnimationManager.h"
#include "graphics/CFrame.h"
#include "support/InScope.h"

#include <functional>

namespace {

using test::Bytes;
using test::counting;
using test::picture;
using test::words;
using test::Words;

// An event of so many entries, which show frames 0, 1, 2, ... in turn.
_annEventInfo3 event(const char * name, int entries, int loopStart = 0, int loopEnd = 0, int loopCount = 0,
                     int flags = 0) {
    _annEventInfo3 e;
    e.name = name;
    for (int i = 0; i < entries; i++) e.add(static_cast<std::uint16_t>(i));
    e.loopStart = static_cast<std::uint16_t>(loopStart);
    e.loopEnd = static_cast<std::uint16_t>(loopEnd);
    e.loopCount = static_cast<std::uint16_t>(loopCount);
    e.flags = flags;
    return e;
}

// Pictures of one pixel, whose colour is the frame's number.
std::string file(const std::vector<_annEventInfo3> & events, int frames = 6, int flags = 0) {
    std::vector<std::string> planes;
    for (int i = 0; i < frames; i++)
        planes.push_back(std::string(1, static_cast<char>(i)) + std::string(1, '\0'));
    ann::File f;
    f.flags = flags;
    f.events = events;
    for (int i = 0; i < frames; i++) {
        ann::Frame frame;
        frame.width = frame.height = 1;
        frame.colour = planes[static_cast<std::size_t>(i)];
        f.frames.push_back(frame);
    }
    return ann::write(f);
}

class Animo : public test::InScope, public CPlayableObserver {
protected:
    std::unique_ptr<CAnimo6> load(const std::string & bytes) {
        put("a.ann", bytes);
        auto animo = std::make_unique<CAnimo6>(&window());
        error = animo->Load("a.ann");
        animo->addNotifier(this);
        return animo;
    }
    bool onPlayableStarted(CPlayable *) override { return tell("started"); }
    bool onPlayableTick(CPlayable *) override { return tell("."); }
    bool onPlayableFinished(CPlayable *) override { return tell("finished"); }
    bool onPlayableResumed(CPlayable *) override { return tell("resumed"); }
    bool tell(const char * what) {
        told += what;
        if (act) act(what);
        return true;
    }
    // The frames of so many steps; "|" where it finished.
    std::string run(CAnimo6 & animo, int steps) {
        std::string shown = std::to_string(animo.Current());
        for (int i = 0; i < steps; i++) {
            told.clear();
            animo.next();
            if (told.find("finished") != std::string::npos) shown += '|';
            shown += std::to_string(animo.Current());
        }
        return shown;
    }

    int error = 0;
    std::string told;
    std::function<void(const std::string &)> act;
};

} // namespace

TEST_F(Animo, EventsRunAsTheirLoopsSay) {
    struct {
        const char * what;
        _annEventInfo3 event;
        int steps;
        const char * shown;
    } const cases[] = {
        {"no loop end, whatever start and count say", event("E", 4, 2, 0, 3), 4, "0123|3"},
        {"for ever", event("E", 4, 1, 3, 0), 8, "012312312"},
        {"twice, then on", event("E", 4, 1, 2, 2), 5, "01212|3"},
        {"twice up to the last", event("E", 3, 0, 2, 2), 6, "012012|2"},
        {"a loop end behind the list", event("E", 3, 1, 9, 1), 3, "012|2"},
        {"ping-pong", event("E", 4, 0, 2, 0, kAnimoPingPong), 9, "0121012101"},
        {"ping-pong of one entry", event("E", 2, 1, 1, 0, kAnimoPingPong), 4, "01010"},
        {"its sound doesn't play", event("E", 5, 0, 1, 0, kAnimoLoopsWithSound), 3, "013|4"},
    };
    for (const auto & c : cases) {
        auto animo = load(file({c.event}));
        animo->play();
        EXPECT_EQ(run(*animo, c.steps), c.shown) << c.what;
    }
}

TEST_F(Animo, BackwardsIsTheMirror) {
    struct {
        const char * what;
        _annEventInfo3 event;
        int from, steps;
        const char * shown;
    } const cases[] = {
        {"no loop", event("E", 3), 2, 3, "210|0"},
        {"for ever", event("E", 4, 1, 3, 0), 3, 5, "321321"},
        {"twice", event("E", 4, 1, 2, 2), 2, 4, "2121|0"},
    };
    for (const auto & c : cases) {
        auto animo = load(file({c.event}));
        animo->Play(_animoevent(0), c.from, 15);
        animo->SetDirection(kBackward);
        EXPECT_EQ(run(*animo, c.steps), c.shown) << c.what;
    }
}

TEST_F(Animo, PlayingIsTold) {
    auto animo = load(file({event("one", 3), event("none", 0), event("two", 2)}));
    EXPECT_EQ(error, 0);
    EXPECT_EQ(animo->GetStatus(), kAnimoStopped);
    animo->Play("NONE", 0, 15);
    animo->Play("unknown", 0, 15);
    EXPECT_FALSE(animo->isPlaying());
    EXPECT_EQ(told, "");
    animo->Play("TWO", 1, 15);
    EXPECT_EQ(told, ".started");
    EXPECT_TRUE(animo->isPlaying("Two"));
    EXPECT_FALSE(animo->isPlaying("one"));
    EXPECT_EQ(animo->GetFPS(), 15) << "0 in the file";
    animo->pause();
    EXPECT_FALSE(animo->isPlaying());
    animo->resume();
    animo->stop(false);
    animo->resume();
    EXPECT_FALSE(animo->isPlaying());
    EXPECT_EQ(told, ".startedresumed");
    animo->stop(true);
    EXPECT_EQ(told, ".startedresumedfinished");
}

TEST_F(Animo, AnExclusiveOneEndsFirst) {
    for (bool byEvent : {false, true}) {
        auto animo = load(file({event("one", 3, 0, 0, 0, byEvent ? kAnimoExclusive : 0), event("two", 2)}, 6,
                               byEvent ? 0 : kAnimoExclusive));
        animo->Play("one", 0, 15);
        animo->Play("two", 0, 15);
        EXPECT_EQ(animo->getCurrentEventName(), "one");
        animo->Stop();
        animo->Play("two", 0, 15);
        EXPECT_EQ(animo->getCurrentEventName(), "two");
    }
}

TEST_F(Animo, RunsOnIntoTheNextEvent) {
    auto animo = load(file({event("one", 2), event("two", 3), event("none", 0)}, 6, kAnimoRunsOn));
    animo->play();
    EXPECT_EQ(run(*animo, 4), "01012");
    EXPECT_EQ(run(*animo, 1), "2|2") << "the next has no frames";
}

TEST_F(Animo, ReversedEventsAreMadeOnce) {
    auto animo = load(file({event("Walk", 3, 0, 2, 7)}));
    animo->playReverse("walk", 15);
    EXPECT_EQ(animo->Current(), 2);
    animo->playReverse("WALK_reverse", 15);
    EXPECT_EQ(animo->GetNOE(), 2);
    CXPoint loop;
    EXPECT_EQ(animo->GetLoop(1, &loop), 7);
    EXPECT_EQ(loop, CXPoint(0, 2));
    animo->playReverse("unknown", 15);
    EXPECT_EQ(animo->GetNOE(), 2);
}

// Who is told may do anything meanwhile.
TEST_F(Animo, WhoHearsMayChangeEverything) {
    std::unique_ptr<CAnimo6> animo;
    const std::string bytes = file({event("one", 2), event("two", 3)});
    auto start = [&] {
        act = nullptr;
        animo = load(bytes);
        animo->play();
    };
    start();
    act = [&](const std::string & what) {
        if (what == "finished") animo->Play("two", 1, 15);
    };
    EXPECT_EQ(run(*animo, 3), "01|12");
    for (const char * moment : {"finished", ".", "started"}) {
        for (bool all : {false, true}) {
            start();
            bool done = false;
            act = [&](const std::string & what) {
                if (what != moment || done) return;
                done = true;
                if (all)
                    animo.reset();
                else
                    animo->Load("a.ann");
            };
            if (std::string(moment) == "started")
                animo->Play("two", 0, 15);
            else
                for (int i = 0; i < 3 && animo; i++) animo->next();
            EXPECT_TRUE(done) << moment;
        }
    }
}

TEST_F(Animo, StandsWhereItWasPutWithItsFrames) {
    std::vector<_annEventInfo3> events{event("E", 2)};
    events[0].infos[1].x = 5;
    events[0].infos[1].y = -3;
    test::Canvas canvas;
    auto animo = load(file(events));
    animo->SetCanvas(&canvas);
    animo->SetPosition(100, 50);
    EXPECT_EQ(animo->getRect(), CXRect(100, 50, 101, 51));
    animo->Move(10, 0);
    EXPECT_EQ(canvas.told, (std::vector<CXRect>{{100, 50, 111, 51}}));
    canvas.told.clear();
    animo->SetEventFrame(0, 1);
    EXPECT_EQ(animo->GetPosition(), CXPoint(115, 47));
    ASSERT_FALSE(canvas.told.empty());
    EXPECT_EQ(canvas.told.front(), CXRect(110, 50, 111, 51));
    EXPECT_EQ(canvas.told.back(), CXRect(115, 47, 116, 48));
}

TEST_F(Animo, OneFrameIsExpandedAtATime) {
    CAnimo6 animo(&window());
    for (int i = 1; i <= 3; i++) {
        auto frame = picture({2, 1}, {static_cast<std::uint16_t>(i), 9}, {255, 0});
        frame->Compress(kCompressionRle);
        animo.AddFrame(frame.get());
        animo.GetFrame(i - 1)->Compress(kCompressionRle);
    }
    animo.AddEvent("E");
    for (int i = 0; i < 3; i++) animo.AddFrame(0, i);
    auto expanded = [&] {
        std::string which;
        for (int i = 0; i < 3; i++)
            which += animo.GetFrame(i)->GetCompression() == kCompressionNone ? 'x' : '.';
        return which;
    };
    EXPECT_EQ(expanded(), "...");
    for (int i : {0, 1, 1, 2}) {
        auto screen = picture({4, 1}, {0, 0, 0, 0});
        animo.SetEventFrame(0, i);
        EXPECT_EQ(animo.GetPixel(kChannelAlpha, {0, 0}), 255) << "coded";
        animo.SetPosition(1, 0);
        animo.redraw(screen.get());
        EXPECT_EQ(words(*screen), (Words{0, static_cast<std::uint16_t>(i + 1), 0, 0}));
        std::string one = "...";
        one[static_cast<std::size_t>(i)] = 'x';
        EXPECT_EQ(expanded(), one);
    }
    EXPECT_EQ(animo.GetFrame(2)->getPosition(), CXPoint(0, 0)) << "put back";
    animo.FlipV();
    animo.replace_color(9, 8);
    {
        CAnimo6 copy(animo); // shares what stays
        animo.redraw(picture({4, 1}, Words(4, 0)).get());
        copy.SetEventFrame(0, 1);
        auto screen = picture({4, 1}, {0, 0, 0, 0});
        copy.redraw(screen.get());
        EXPECT_EQ(words(*screen), (Words{0, 0, 2, 0}));
    }
    animo.unpack();
    EXPECT_EQ(expanded(), "xxx");
    animo.FlipV();
    animo.pack(true);
    EXPECT_EQ(expanded(), "...");
    animo.DeCompressRLE2();
    EXPECT_EQ(words(animo), (Words{3, 8}));
}

TEST_F(Animo, OpacityComesFromTheEntryTheEventOrItself) {
    struct {
        int own, entry, event;
        std::uint16_t drawn;
    } const cases[] = {{255, 255, 255, 31}, {255, 128, 64, 15}, {255, 255, 128, 15}, {64, 128, 255, 7}};
    for (const auto & c : cases) {
        CAnimo6 animo(&window());
        animo.AddFrame(picture({1, 1}, {31}).get());
        animo.AddEvent("E");
        animo.AddFrame(0, 0);
        animo.getEventInfo(0)->opacity = static_cast<unsigned char>(c.event);
        animo.getFrameInfo(0, 0)->opacity = static_cast<unsigned char>(c.entry);
        animo.SetOpacity(static_cast<unsigned char>(c.own));
        animo.SetEventFrame(0, 0);
        auto screen = picture({1, 1}, {0});
        animo.redraw(screen.get());
        EXPECT_EQ(words(*screen)[0], c.drawn) << c.own << " " << c.entry << " " << c.event;
    }
}

TEST_F(Animo, TablesAreEdited) {
    auto animo = load(file({event("a", 3), event("b", 4)}, 4));
    animo->setFrameName(1, 2, "jump");
    EXPECT_EQ(animo->GetFrameNo(1, "JUMP"), 2);
    EXPECT_EQ(animo->getFrame("jump"), animo->GetFrame(2));
    animo->ExchangeFrames(1, 0, 2);
    EXPECT_EQ(animo->GetFrameNo(1, "jump"), 0);
    EXPECT_EQ(animo->GetName(1, 0, ""), "jump");
    EXPECT_EQ(animo->GetName(1, 1, "!"), "Frame 1!");
    EXPECT_EQ(animo->GetName(animo->AddEvent(""), -1, ""), "Default");
    animo->RemoveFrame(1); // frame 1 goes, those behind it move up
    EXPECT_EQ(animo->GetNOF(), 3);
    EXPECT_EQ(animo->getEventInfo(0)->frames, (std::vector<std::uint16_t>{0, 1}));
    EXPECT_EQ(animo->getEventInfo(1)->frames, (std::vector<std::uint16_t>{1, 0, 2}));
    animo->RemoveFrame(0, 0);
    EXPECT_EQ(animo->GetEventFrame(0, 0), 1);
    animo->RemoveEvent(0);
    EXPECT_EQ(animo->GetEventName(0), "b");
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(animo->GetEventName(7), "");
    EXPECT_EQ(boxes(), std::vector<std::string>{"Event indef out of bounds."});
    animo->RemoveAllFrames(0);
    EXPECT_EQ(animo->GetNOFInEvent(0), 0);
    animo->play();
    EXPECT_FALSE(animo->isPlaying());
    EXPECT_FALSE(animo->Next());
    animo->RemoveAllEvents();
    for (int bad : {-1, 0, 99}) {
        animo->RemoveEvent(bad);
        animo->RemoveFrame(bad, bad);
        animo->SetEventFrame(bad, bad);
        animo->ExchangeFrames(bad, bad, bad);
        animo->AddFrame(bad, bad);
    }
    while (animo->GetNOF() > 0) animo->RemoveFrame(0);
    EXPECT_EQ(animo->Width(), 1) << "the last picture's size stays";
    EXPECT_EQ(animo->GetDataPtr(), nullptr);
}

// ---- sounds

namespace {

struct Sound : FrameSound {
    explicit Sound(const std::string & name) : name(name) {}
    ~Sound() override { told += "-" + name + " "; }
    void play() override {
        told += name + " ";
        playing = true;
    }
    void stop() override {
        told += "stop " + name + " ";
        playing = false;
    }
    bool isPlaying() override { return playing; }
    void setVolume(int volume) override { told += std::to_string(volume) + " "; }
    std::string name;
    bool playing = false;
    static std::string told;
};
std::string Sound::told;

class AnimoSound : public Animo {
protected:
    AnimoSound() {
        FrameSound::load = FrameSound::stream = [](CWindow *, const CXString & name) -> FrameSound * {
            Sound::told += "+" + std::string(name.view()) + " ";
            return new Sound(std::string(name.view()));
        };
        Sound::told.clear();
    }
    ~AnimoSound() override { FrameSound::load = FrameSound::stream = nullptr; }
    static std::string heard() { return std::exchange(Sound::told, ""); }
};

} // namespace

TEST_F(AnimoSound, FramesSound) {
    for (bool streamed : {false, true})
        for (bool outlives : {false, true}) {
            std::vector<_annEventInfo3> events{event("E", 3)};
            events[0].infos[1].soundName = "a.wav";
            int flags = (streamed ? kAnimoStreamsSounds : 0) | (outlives ? kAnimoSoundOutlives : 0);
            auto animo = load(file(events, 3, flags));
            EXPECT_EQ(heard(), streamed ? "" : "+a.wav ");
            animo->SetEventFrame(0, 1); // silent while it doesn't play
            animo->SetEventFrame(0, 0);
            EXPECT_EQ(heard(), "");
            animo->play();
            animo->next();
            EXPECT_EQ(heard(), streamed ? "+a.wav a.wav " : "a.wav ");
            animo->setVolume(7);
            EXPECT_EQ(heard(), "7 ");
            animo->Stop();
            EXPECT_EQ(heard(), streamed ? "stop a.wav -a.wav " : outlives ? "" : "stop a.wav ");
            animo.reset();
            heard();
        }
}

TEST_F(AnimoSound, ALoopLastsAsLongAsItsSound) {
    std::vector<_annEventInfo3> events{event("E", 4, 0, 1, 0, kAnimoLoopsWithSound)};
    events[0].infos[1].soundName = "a.wav";
    auto animo = load(file(events));
    animo->play();
    EXPECT_EQ(run(*animo, 4), "01010");
    animo->next();
    auto * sound = static_cast<Sound *>(animo->getFrameInfo(0, 1)->sound.get());
    sound->playing = false;
    EXPECT_EQ(run(*animo, 1), "13");
}

// ---- the clock

TEST_F(Animo, TheManagerStepsWhatIsDue) {
    CAnimationManager manager;
    auto fast = load(file({event("E", 6, 0, 5, 0)})), slow = load(file({event("E", 6, 0, 5, 0)}));
    manager.add(fast.get(), nullptr);
    manager.add(slow.get(), nullptr);
    fast->SetFPS(50);
    fast->play();
    slow->play(); // 15: every 66 ms
    std::string shown;
    for (int t = 0; t < 140; t += 10) {
        clock().advance(10);
        manager.domodal();
        shown += std::to_string(fast->Current()) + std::to_string(slow->Current()) + " ";
    }
    EXPECT_EQ(shown, "00 10 10 20 20 30 31 41 41 51 51 01 01 12 ");
    manager.pause();
    EXPECT_TRUE(fast->isPaused() && slow->isPaused());
    manager.resume(nullptr);
    EXPECT_TRUE(fast->isPlaying() && slow->isPlaying());
    manager.remove(slow.get());
    act = [&](const std::string &) { // a step may take others out
        if (!fast) return;
        manager.remove(fast.get());
        act = nullptr;
    };
    clock().advance(1000);
    manager.domodal();
    manager.domodal();
}
