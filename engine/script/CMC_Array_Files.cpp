// What an array keeps outside of the game: its own files, the settings file, names of a folder.

#include "core/CStringTokenizer.h"
#include "files/CConfig.h"
#include "files/CFile.h"
#include "files/CFolder.h"
#include "files/CPath.h"
#include "files/CXArchive.h"
#include "script/CMC_Array.h"
#include "script/CMC_ObjectsContainer.h"
#include "script/CMC_VariableFactory.h"
#include "script/Notes.h"

namespace {

constexpr int kReadMode = CFile::kRead | CFile::kBinary;
constexpr int kWriteMode = CFile::kWrite | CFile::kUpdate | CFile::kBinary;

} // namespace

CWindow * CMC_Array::window() { return getScene() ? getScene()->getWindow() : nullptr; }

CConfig * CMC_Array::settings() {
    CConfig * config = getScene() ? getScene()->getConfig() : nullptr;
    if (!config)
        notes::add(notes::Kind::noSettings,
                   std::string(getName().view()) + " has nowhere to be kept: the game has no settings file");
    return config;
}

void CMC_Array::saveINI() {
    if (CConfig * config = settings()) config->PutString(getScene()->getName(), getName(), toString());
}

void CMC_Array::loadINI() {
    CConfig * config = settings();
    if (!config) return;
    life::Alive alive(this);
    CStringTokenizer tokens(config->GetString(getScene()->getName(), getName()), ",");
    removeAll();
    while (alive && tokens.hasMoreTokens() && append(text(tokens.nextToken())))
        ;
}

void CMC_Array::save(const CXString & fileName) {
    CFile file(window(), fileName, kWriteMode);
    if (file.LastError()) {
        note("SAVE can't write " + std::string(fileName.view()));
        return;
    }
    CXArchive archive(&file, true);
    write(archive);
    if (archive.failed()) note("SAVE can't write all of " + std::string(fileName.view()));
}

void CMC_Array::load(const CXString & fileName) {
    removeAll();
    CFile file(window(), fileName, kReadMode);
    if (file.LastError()) {
        note("LOAD finds no file " + std::string(fileName.view()));
        return;
    }
    CXArchive archive(&file, false);
    read(archive);
}

void CMC_Array::write(CXArchive & archive) {
    archive << getSize();
    for (const Item & item : items_) item->store(&archive);
}

void CMC_Array::read(CXArchive & archive) {
    life::Alive alive(this);
    int count = 0;
    archive >> count;
    for (int i = 0; alive && i < count && hasRoom(); i++) {
        CMC_Variable * value = CMC_VariableFactory::restore(&archive);
        if (!value) {
            note("the file is damaged at item " + std::to_string(i));
            return;
        }
        add(value);
        CMC_VariableFactory::free(value);
    }
    if (archive.failed()) note("the file is damaged");
}

void CMC_Array::dir(const CXString & path, const CXString & filter) {
    life::Alive alive(this);
    CXString before = CFile::getCurrentDirectory();
    CFolder folder(window(), CPath::resolveFileName(window(), path));
    CXArray * names = folder.list(filter);
    CFile::chDir(before);
    for (int i = 0; alive && i < names->size; i++)
        if (!append(text(path + *names->stringAt(i)))) break;
    CFolder::releaseFilesList(names);
}
