#include "files/CResourcesManager.h"

#include "files/CFileResolver.h"

#include <gtest/gtest.h>
#include <memory>

namespace {

struct Media : CFileResolver {
    Media(const char * name, std::string & log) : log_(log) { setFilename(name); }
    ~Media() override { log_ += "-" + std::string(getFileName().view()); }
    void retire() override {
        EXPECT_FALSE(manager && manager->contains(this)) << "still handed out while it stops";
        log_ += "retire ";
    }
    CResourcesManager * manager = nullptr;
    std::string & log_;
};

struct Managers : testing::Test {
    std::string log;
    CResourcesManager application{nullptr};
    std::unique_ptr<CResourcesManager> unit = std::make_unique<CResourcesManager>(nullptr);
};

TEST_F(Managers, CountTheUsersOfAName) {
    auto * media = new Media("Dane\\\xB3"
                             "A.ann",
                             log);
    media->manager = &application;
    application.add(media);
    media->setFilename("renamed");
    EXPECT_EQ(application.get("renamed"), nullptr);
    EXPECT_EQ(application.get("DANE\\\xA3"
                              "a.ANN"),
              media);
    EXPECT_FALSE(application.remove(media));
    EXPECT_TRUE(application.contains(media));
    EXPECT_TRUE(application.remove(media));
    EXPECT_EQ(log, "retire -renamed");
    EXPECT_EQ(application.get("Dane\\\xB3"
                              "A.ann"),
              nullptr);
    EXPECT_FALSE(application.remove(media)); // the pointer is only compared
    EXPECT_FALSE(application.remove(static_cast<CFileResolver *>(nullptr)));
}

TEST_F(Managers, ChildrenAreAskedInOrderAndCountForThemselves) {
    auto *first = new Media("a", log), *second = new Media("a", log);
    CResourcesManager other(nullptr);
    unit->add(first);
    other.add(second);
    application.add(unit.get());
    application.add(&other);
    application.add(&other);
    EXPECT_EQ(application.get("A"), first);
    EXPECT_FALSE(application.contains(first));
    EXPECT_FALSE(application.remove(first));
    EXPECT_FALSE(unit->remove(first));
    EXPECT_TRUE(unit->remove(first));
    EXPECT_EQ(application.get("A"), second);
    auto * own = new Media("a", log);
    application.add(own);
    EXPECT_EQ(application.get("A"), own);
    application.remove(own);
    application.remove(own);
    application.remove(&other);
    EXPECT_EQ(application.get("A"), nullptr);
}

TEST_F(Managers, InsertAtSetsThePlace) {
    auto *first = new Media("a", log), *second = new Media("a", log), *third = new Media("a", log);
    application.insertAt(first, 5);
    application.insertAt(second, -1);
    EXPECT_EQ(application.get("a"), second);
    application.insertAt(third, 1);
    application.remove(second);
    application.remove(second);
    EXPECT_EQ(application.get("a"), third);
}

TEST_F(Managers, FlushDeletesWhateverIsUsed) {
    application.add(new Media("a", log));
    application.get("a");
    application.add(unit.get());
    unit->add(new Media("b", log));
    application.flush();
    EXPECT_EQ(log, "-b-a");
    unit->add(new Media("c", log));
    EXPECT_EQ(application.get("c"), nullptr); // no longer a child
}

TEST_F(Managers, AManagerThatGoesLeavesItsParent) {
    application.add(unit.get());
    unit->add(new Media("a", log));
    unit.reset();
    EXPECT_EQ(log, "-a");
    EXPECT_EQ(application.get("a"), nullptr);
    application.flush();
}

TEST(CFileResolver, Flags) {
    struct Loading : CFileResolver {
        using CFileResolver::load;
        using CFileResolver::release;
    } media;
    EXPECT_FALSE(media.isLoaded() || media.isToRelease());
    media.load();
    media.toRelease(true);
    EXPECT_TRUE(media.isLoaded() && media.isToRelease());
    media.release();
    EXPECT_FALSE(media.isLoaded());
}

} // namespace
