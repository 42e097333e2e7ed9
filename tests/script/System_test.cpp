#include "script/CMC_Runner.h"
#include "script/CMC_System.h"
#include "support/InScope.h"

namespace {

class System : public test::InScope {
protected:
    System() : InScope("-server -path Games") { scope().addObject(new CMC_System(&scope())); }

    void days(int count) {
        for (int i = 0; i < count; i++) clock().advance(24 * 60 * 60 * 1000);
    }
};

TEST_F(System, Dates) {
    const std::string show =
        "@MSGBOX(SYSTEM^GETDATE(),SYSTEM^GETDATESTRING(),SYSTEM^GETDAY(),SYSTEM^GETDAYOFWEEK(),"
        "SYSTEM^GETDAYOFWEEKSTRING(),SYSTEM^GETMONTH(),SYSTEM^GETMONTHSTRING(),SYSTEM^GETYEAR());";
    EXPECT_EQ(shown(show), "101, 1/Styczen/2000, 1, 7, Sobota, 1, Styczen, 2000");
    days(1);
    EXPECT_EQ(shown(show), "102, 2/Styczen/2000, 2, 1, Niedziela, 1, Styczen, 2000");
    days(58);
    EXPECT_EQ(shown(show), "229, 29/Luty/2000, 29, 3, Wtorek, 2, Luty, 2000");
    days(306);
    EXPECT_EQ(shown(show), "1231, 31/Grudzien/2000, 31, 1, Niedziela, 12, Grudzien, 2000");
    days(1);
    EXPECT_EQ(shown(show), "10101, 1/Styczen/2001, 1, 2, Poniedzialek, 1, Styczen, 2001");
}

TEST_F(System, TimesAndDelay) {
    EXPECT_EQ(shown("@MSGBOX(SYSTEM^GETSYSTEMTIME());SYSTEM^DELAY(250);SYSTEM^DELAY(-5);"
                    "@MSGBOX(SYSTEM^GETSYSTEMTIME());"),
              "1000; 1250");
    clock().advance(((13 * 60 + 5) * 60 + 9) * 1000);
    EXPECT_EQ(
        shown("@MSGBOX(SYSTEM^GETTIMESTRING(),SYSTEM^GETHOUR(),SYSTEM^GETMINUTES(),SYSTEM^GETSECONDS());"),
        "13:5, 13, 5, 9");
    EXPECT_EQ(shown("@MSGBOX(SYSTEM^GETMHZ());"), "1000");
}

TEST_F(System, CopiesFilesFromTheDiskRoot) {
    put("cd/from.txt", "new");
    CWindow::setCDPath(CXString(windowsFolder() + "\\cd\\"));
    EXPECT_EQ(shown("@MSGBOX(SYSTEM^COPYFILE(\"&from.txt\",\"&to.txt\"),"
                    "SYSTEM^COPYFILE(\"&absent.txt\",\"&to.txt\"));"),
              "TRUE, FALSE");
    EXPECT_EQ(get("cd/to.txt"), "new");
    CWindow::setCDPath("");
}

TEST_F(System, CommandLine) {
    EXPECT_EQ(shown("@MSGBOX(SYSTEM^ISCMDLINEPARAMETER(\"server\"),SYSTEM^ISCMDLINEPARAMETER(\"client\"),"
                    "SYSTEM^GETCMDLINEPARAMETER(\"path\"),SYSTEM^GETCMDLINEPARAMETER(\"res\"));"),
              "TRUE, FALSE, Games, ");
}

TEST_F(System, WorksWithoutAWindow) {
    CMC_ObjectsContainer bare(nullptr, nullptr, CXString("BARE"), types::kScene);
    CMC_System system(&bare);
    CMC_String name("server", "");
    CXVector params(11, 0.75F);
    params.add(&name);
    CMC_Variable * known = system.getRunner()->run("ISCMDLINEPARAMETER", &system, &bare, &params);
    ASSERT_TRUE(known);
    EXPECT_FALSE(known->asBool());
    EXPECT_FALSE(system.getRunner()->run("MINIMIZE", &system, &bare, nullptr));
}

} // namespace
