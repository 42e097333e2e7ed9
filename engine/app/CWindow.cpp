#include "app/CWindow.h"

#include "app/CCommandLine6.h"
#include "core/CXVersion.h"
#include "files/CFile.h"
#include "files/CLanguageOSVer.h"
#include "platform/World.h"

CXString CWindow::exePath;
CXString CWindow::rootPath;
CXString CWindow::cdPath;
bool CWindow::logEnabled = false;
std::unique_ptr<CFile> CWindow::log;
CWindow * CWindow::theWindow = nullptr;

namespace {

constexpr int kLogMode = 6; // write, with reading allowed

// The public trash is the only timer that the window sets for itself.
constexpr int kTrashTimer = -1;

} // namespace

CWindow::CWindow(HWND hwnd, CCommandLine6 * commandLine, CLanguageOSVer * language, CXSize size,
                 const CXString & exe)
    : hwnd_(hwnd), commandLine_(commandLine), language_(language), size_(size) {
    exePath = exe;
    rootPath = CFile::getCurrentDirectory();
    platform::world().random->seed(platform::world().clock->tickCount());
    theWindow = this;
    language_->setWindow(this);
    timer_.add(kTrashTimer, CPublicTrash::kInterval, &publicTrash_);
    if (commandLine_->isLogEnabled()) openLog();
}

CWindow::~CWindow() {
    log.reset();
    logEnabled = false;
    language_->setWindow(nullptr);
    theWindow = nullptr;
}

void CWindow::openLog() {
    log = std::make_unique<CFile>(this, kLogFile, kLogMode);
    if (log->LastError()) log.reset();
    logEnabled = true;
    const CXString line = "============================\n";
    toLog(CXVersion::getCurrentVersion().toString() + "\n" + line + line, false);
    toLog(CXString(platform::world().describe()), false);
}

void CWindow::toLog(const CXString & text, bool toDebugger) {
    if (!logEnabled) return;
    if (toDebugger) {
        platform::world().debugger->write(text.view());
        platform::world().debugger->write("\n");
    }
    if (!log) return;
    log->Write(text.c_str(), text.getLength());
    log->GetHandle()->flush();
}
