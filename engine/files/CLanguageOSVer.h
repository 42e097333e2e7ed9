#pragma once

// Which language's files go before the plain ones: a sub-folder beside each file. Made by the host; the
// window keeps a pointer to it and sets itself here.

#include "core/CXString.h"

class CWindow;

class CLanguageOSVer {
public:
    static constexpr int kNoLanguage = 9;
    static constexpr int kDownloadFailed = 2; // id of a built-in text

    CLanguageOSVer(); // from the system's language

    int getLang() const { return number_; }
    const CXString & getLanguageFolder() const { return folder_; } // empty for none
    // The name's variant in the language folder if there is one to open (a name without a folder isn't tried
    // but always changed), else the name.
    CXString getLocalFileName(const CXString & name);
    // code: a locale code of the table, in its case; another leaves the language as it is.
    void setLanguageFolder(const CXString & code);
    // A text of the engine's own in this language; empty for an unknown id.
    CXString getTextLocale(int id) const;

    void setWindow(CWindow * window) { window_ = window; }

private:
    void choose(std::string_view code);

    int number_ = kNoLanguage;
    CXString folder_;
    CWindow * window_ = nullptr;
};
