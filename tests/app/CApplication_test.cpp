#include "app/CApplication.h"

#include "files/CConfig.h"
#include "support/InPlay.h"

#include <filesystem>

namespace {

class Start : public test::InPlay {};

// Where a game is found, by the command line; roots and folders are set before it is read.
TEST_F(Start, FromTheFolderThatTheCommandLineNames) {
    for (const char * game : {"", "one/", "two/"})
        define(std::string(game) + "Dane/application.def",
               std::string("GAME TYPE=APPLICATION\nGAME SCENES=S\nGAME DESCRIPTION=it") +
                   std::string(game).substr(0, 1) + "\nS TYPE=SCENE");
    struct {
        const char *commandLine, *description, *folder;
    } const rows[] = {
        {"", "it", ""},
        {"-path one", "ito", "\\one"},
        {"-game two", "itt", "\\two"},
        {"-path one -game two", "itt", "\\two"},
        {"/path none", "it", ""}, // the folder of the game itself
    };
    for (const auto & row : rows) {
        ASSERT_TRUE(start(row.commandLine)) << row.commandLine;
        std::string root = windowsFolder() + "\\";
        EXPECT_EQ(app().getDesc().view(), row.description) << row.commandLine;
        EXPECT_EQ(CWindow::rootPath.view(), root);
        EXPECT_EQ(CWindow::getCDPath().view(), windowsFolder() + row.folder + "\\") << row.commandLine;
        EXPECT_EQ(application().getWAVPath("a.wav").view(), windowsFolder() + row.folder + "\\Wavs\\a.wav");
        EXPECT_EQ(application().LastError(), 0);
        EXPECT_NE(application().getGeneralResourcesManager(), nullptr);
        EXPECT_EQ(window().getApplication(), &application());
        end();
    }
}

TEST_F(Start, KeepsSettingsOverRuns) {
    define("Dane/GAME.cnv", "V TYPE=INTEGER\nV VALUE=1\nV TOINI=TRUE");
    for (int run = 1; run <= 3; run++) {
        ASSERT_TRUE(start());
        EXPECT_EQ(told("@MSGBOX(V);V^ADD(1);"), std::to_string(run));
        end();
    }
    EXPECT_TRUE(exists("settings.ini"));
    // Without a file nothing is kept, and nothing breaks.
    std::filesystem::remove(folder() + "/settings.ini");
    world().files->changeDirectory(windowsFolder());
    CCommandLine6 commandLine("");
    CLanguageOSVer language;
    CWindow plain(nullptr, &commandLine, &language, CXSize(800, 600), nullptr, "", true);
    CApplication without(&plain, "", "", &commandLine);
    EXPECT_EQ(without.GetConfigInterface(), nullptr);
    EXPECT_FALSE(without.domodal()); // no game yet
    without.preinitializeApplication(true);
    EXPECT_EQ(without.LastError(), 0);
    EXPECT_FALSE(without.domodal());
}

TEST_F(Start, StoringEntersNoScene) {
    define("Dane/GAME.cnv", "__INIT__ TYPE=BEHAVIOUR\n__INIT__ CODE={@MSGBOX(\"never\");}");
    define("Dane/A.cnv", "A ONINIT={@MSGBOX(\"never\");}");
    ASSERT_TRUE(start("-2bin -log"));
    tick(3);
    EXPECT_FALSE(over());
    EXPECT_EQ(scene(), nullptr);
    EXPECT_EQ(told(), "");
    EXPECT_EQ(app().getCurrentScene(), nullptr);
    EXPECT_NE(get("Tarnook.log").find("application.bin"), std::string::npos);
}

TEST_F(Start, WithoutAnApplicationThereIsAnErrorAndNothingRuns) {
    for (const char * text : {"", "S TYPE=SCENE", "GAME TYPE=APP"}) {
        define("Dane/application.def", text);
        EXPECT_FALSE(start());
        EXPECT_EQ(application().LastError(), 3000);
        EXPECT_EQ(application().getMCApplicationIfc(), nullptr);
        window().OnActivateApp(true);
        tick(3);
        EXPECT_FALSE(over());
        EXPECT_EQ(told(), ""); // the engine shows no box
    }
}

} // namespace
