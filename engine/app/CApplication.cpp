#include "app/CApplication.h"

#include "app/CCommandLine6.h"
#include "app/CMC_Application.h"
#include "app/CMC_StructureParser.h"
#include "app/CUnit6.h"
#include "app/CWindow.h"
#include "files/CConfig.h"
#include "files/CFile.h"
#include "files/CFolder.h"
#include "files/CPath.h"
#include "files/CResourcesManager.h"
#include "graphics/CAnimationManager.h"
#include "sound/CSoundCodec.h"
#include "sound/CSoundManager.h"
#include "sound/FrameSounds.h"

CApplication::CApplication(CWindow * window, const CXString & configName, const CXString & bigFileName,
                           CCommandLine6 * commandLine)
    : window_(window),
      commandLine_(commandLine),
      animationManager_(std::make_unique<CAnimationManager>()),
      soundManager_(std::make_unique<CSoundManager>()) {
    framesounds::install();
    if (bigFileName.IsString()) CFile::openBigFile(bigFileName);
    window_->SetApplicationInterface(this);
    CSoundCodec::init_codecs();
    if (configName.IsString()) config_ = std::make_unique<CConfig>(CWindow::rootPath + configName);
}

CApplication::~CApplication() {
    mcApplication_.reset();
    parser_.reset();
    config_.reset();
    resources_.reset();
    animationManager_.reset();
    CSoundCodec::done_codecs();
    soundManager_.reset();
    CFile::closeBigFile();
    window_->SetApplicationInterface(nullptr);
}

void CApplication::stepMedia() {
    animationManager_->domodal();
    soundManager_->domodal();
}

CXString CApplication::getWAVPath(const CXString & name) { return window_->GetSoundFXFullPath(name); }

// From the folder of the game: the roots, the data folder, the definition of the application.
bool CApplication::load() {
    CPath path(window_);
    CWindow::setCDPath(path.GetFullPath(""));
    window_->SetSoundFXPath(path.GetFullPath("Wavs"));
    CFile::chDir(CFolder::DATA_FOLDER);
    if (!commandLine_->isForceCNV() && CFile::fileExists("application.bin"))
        CWindow::toLog("application.bin: stored applications aren't read yet, application.def is\n", false);
    parser_ = std::make_unique<CMC_StructureParser>(window_, "application.def");
    mcApplication_.reset(parser_->getApplication());
    return mcApplication_ != nullptr;
}

void CApplication::preinitializeApplication(bool) {
    resources_ = std::make_unique<CResourcesManager>(window_);
    if (commandLine_->getPath().IsString()) CFile::chDir(commandLine_->getPath());
    if (!load()) {
        setErrorCode(kNoApplication);
        return;
    }
    if (commandLine_->is2Bin())
        mcApplication_->storeBinary();
    else
        mcApplication_->initialize(nullptr);
}

bool CApplication::domodal() {
    if (!mcApplication_) return false;
    if (!mcApplication_->domodal()) return false;
    const CXString next = mcApplication_->getNextGame();
    const CXString before = CFile::getCurrentDirectory();
    CFile::chDir(CWindow::rootPath);
    if (!CFile::dirExists(next)) {
        // The game goes on where it stood, and the next tick tries again.
        CFile::chDir(before);
        return false;
    }
    window_->BeginWaitCursor();
    CFile::chDir(next);
    mcApplication_.reset();
    parser_.reset();
    if (load())
        mcApplication_->initialize(nullptr);
    else
        setErrorCode(kNoApplication);
    window_->EndWaitCursor();
    return false;
}
