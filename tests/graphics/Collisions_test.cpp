// Pairs that meet and part: the inspector by itself, and as scripts hear of it.

#include "PictureFiles.h"
#include "graphics/CCollisionInspector.h"
#include "graphics/CGraphicsObject.h"
#include "support/InPlay.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

class Box : public CGraphicsObject {
public:
    Box(CWindow * window, char name, int x, int alpha = -1) : CGraphicsObject(window), name(name) {
        alloc(CXSize(10, 10), 16, alpha >= 0);
        if (alpha >= 0) std::fill_n(GetChannelAlpha(), 100, static_cast<char>(alpha));
        SetPosition(x, 0);
    }
    char name;
};

class Collisions : public test::InPlay, public CCollisionObserver {
protected:
    Collisions() {
        start();
        inspector = &window().getCollisionInspector();
        inspector->addNotifier(this);
        inspector->addNotifier(this);
    }
    ~Collisions() override {
        window().getCollisionInspector().removeNotifier(this);
    } // it may be a second one

    void onCollision(CGraphicsObject * a, CGraphicsObject * b) override { tell('+', a, b); }
    void onCollisionFinished(CGraphicsObject * a, CGraphicsObject * b) override { tell('-', a, b); }
    void tell(char sign, CGraphicsObject * a, CGraphicsObject * b) {
        heard += std::string(heard.empty() ? "" : " ") + sign + static_cast<Box *>(a)->name +
                 static_cast<Box *>(b)->name;
        if (hook) hook();
    }
    void watch(Box & box, bool alpha = false) {
        inspector->addMonitoredObject(&box, alpha);
        box.setMonitorCollisions(true);
    }
    std::string pass() {
        heard.clear();
        inspector->tick();
        return heard;
    }

    CCollisionInspector * inspector;
    std::string heard;
    std::function<void()> hook;
};

} // namespace

TEST_F(Collisions, OnlyWhatMovesIsTestedAndAPairIsToldOnce) {
    Box a(&window(), 'a', 0), b(&window(), 'b', 5), c(&window(), 'c', 20);
    for (Box * each : {&a, &b, &c}) watch(*each);
    EXPECT_EQ(pass(), ""); // they overlap, but nothing has moved
    a.Move(0, 1);
    a.Move(1, 0);
    EXPECT_EQ(pass(), "+ab");
    b.Move(4, 0); // 9 to 19: touches neither edge of c, still a's
    EXPECT_EQ(pass(), "");
    b.Move(1, 0); // 10 to 20: only the edges touch c
    b.Move(1, 0); // 11 to 21; a ends at 11
    EXPECT_EQ(pass(), "-ba +bc");
    c.SetPosition(100, 0);
    b.SetPosition(100, 0);
    EXPECT_EQ(pass(), ""); // still together
}

TEST_F(Collisions, TheMovedObjectDecidesOnAlpha) {
    Box solid(&window(), 's', 0, 255), clear(&window(), 'c', 50, 0), plain(&window(), 'p', 90);
    watch(solid, true);
    watch(clear, false);
    watch(plain, false);
    solid.SetPosition(55, 0);
    EXPECT_EQ(pass(), ""); // by alpha: nothing of the clear one is there
    clear.Move(1, 0);
    EXPECT_EQ(pass(), "+cs"); // by boxes
    solid.Move(1, 0);
    EXPECT_EQ(pass(), "-sc");
    solid.SetPosition(95, 0);
    EXPECT_EQ(pass(), ""); // no alpha plane there: never
    plain.Move(1, 0);
    EXPECT_EQ(pass(), "+ps");
    // Eight probes are the whole test: what lies between them isn't seen.
    clear.SetPosition(200, 0);
    clear.GetChannelAlpha()[3 * 10 + 3] = 1;
    solid.SetPosition(200, 0);
    EXPECT_EQ(pass(), "+cs -sc -sp");    // in the order of moving
    clear.GetChannelAlpha()[5 * 10] = 1; // the middle of the left edge
    solid.Move(0, 0);
    EXPECT_EQ(pass(), "+sc");
}

TEST_F(Collisions, RemovingAndDying) {
    Box a(&window(), 'a', 0);
    watch(a);
    auto b = std::make_unique<Box>(&window(), 'b', 5);
    watch(*b);
    a.Move(1, 0);
    EXPECT_EQ(pass(), "+ab");
    inspector->removeMonitoredObject(b.get());
    inspector->addMonitoredObject(b.get(), true); // the same record, by boxes still
    b->Move(1, 0);
    EXPECT_EQ(pass(), "");
    inspector->removeMonitoredObject(b.get());
    a.Move(1, 0);
    EXPECT_EQ(pass(), ""); // no finish is told
    inspector->addMonitoredObject(b.get(), false);
    b->Move(1, 0);
    EXPECT_EQ(pass(), "+ba"); // a new record: they meet anew
    b.reset();
    a.SetPosition(500, 0);
    EXPECT_EQ(pass(), "");

    // An observer's script deletes the one that moved, or moves another.
    auto c = std::make_unique<Box>(&window(), 'c', 500);
    Box d(&window(), 'd', 502), e(&window(), 'e', 900);
    watch(*c);
    watch(d);
    watch(e);
    hook = [&] {
        c.reset();
        e.SetPosition(501, 0);
    };
    c->Move(1, 0);
    EXPECT_EQ(pass(), "+ca +ea +ed"); // e's move is taken in the same pass
}

// One flees when they meet, the other follows when they part: a tick ends all the same, the next goes on.
TEST_F(Collisions, ObserversThatChaseEachOther) {
    Box a(&window(), 'a', 0), b(&window(), 'b', 50);
    watch(a);
    watch(b);
    hook = [&] { (heard.ends_with("+ab") ? b : a).Move(20, 0); };
    a.SetPosition(45, 0);
    const std::string first = pass();
    EXPECT_EQ(first.substr(0, 11), "+ab -ba +ab");
    EXPECT_GT(first.size(), CCollisionInspector::kMostFollowing);
    EXPECT_FALSE(pass().empty());
    inspector->removeMonitoredObject(&a);
    EXPECT_EQ(pass(), "");
    EXPECT_EQ(pass(), "");
}

TEST_F(Collisions, SignalsOfScripts) {
    put("Dane/p.img", test::Tnk{4, 2, 16, 0, 0, 0, 0, test::plane({1, 2, 3, 4, 5, 6, 7, 8}), {}}.bytes());
    define("Dane/A.cnv", "P TYPE=IMAGE\n P FILENAME=p.img\n P MONITORCOLLISION=TRUE\n"
                         "P ONCOLLISION={@MSGBOX(\"P\",\"meets\");}\n"
                         "P ONCOLLISIONFINISHED^Q={@MSGBOX(\"P\",\"leaves\",\"Q\");}\n"
                         "Q TYPE=IMAGE\n Q FILENAME=p.img\n"
                         "Q ONCOLLISION^P={@MSGBOX(THIS^GETNAME(),\"meets\",\"P\");}\n"
                         "Q ONCOLLISION={@MSGBOX(\"never\");}\n");
    start();
    auto moves = [&](const char * code) {
        run(code);
        told();
        tick();
        return told();
    };
    tick();
    EXPECT_EQ(moves("Q^SETPOSITION(2,0);"), "P, meets; Q, meets, P"); // what listens is watched
    EXPECT_EQ(moves("Q^MONITORCOLLISION(FALSE);Q^MOVE(0,0);"), "");
    EXPECT_EQ(moves("Q^SETPOSITION(4,0);"), "P, leaves, Q");
    // Clones of what is watched are watched, and carry its behaviours.
    EXPECT_EQ(moves("Q^CLONE(1);Q_1^SETPOSITION(0,1);"), "P, meets; Q_1, meets, P");
    EXPECT_EQ(moves("P^LOAD(\"p.img\");P^MOVE(0,0);"), "");
    EXPECT_EQ(moves("Q_1^REMOVEMONITORCOLLISION();Q_1^MOVE(50,0);P^MOVE(50,0);"), "");
    EXPECT_EQ(moves("A^REMOVE(\"P\");Q^SETPOSITION(50,0);"), "");
    EXPECT_EQ(moves("E^GOTO(\"B\");"), "");
    tick(2);
    EXPECT_EQ(told(), "");
}
