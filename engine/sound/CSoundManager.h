#pragma once

// Watches the sound effects and tells each one when its buffer has run out. Owned by the application; sounds
// join and leave by themselves. Main thread.

#include "core/CXObject.h"

#include <memory>
#include <vector>

class CSound4;

class CSoundManager : public CXObject {
public:
    ~CSoundManager() override;

    void add(CSound4 * sound, bool owned); // owned: deleted by Flush
    void play(CSound4 * sound);            // its end is watched for from now on
    void remove(CSound4 * sound);          // also while the list is walked
    void domodal();                        // the tick
    void Flush();
    void pause();  // all that play
    void resume(); // all that are paused

private:
    struct Entry {
        CSound4 * sound = nullptr; // null once it was removed
        bool playing = false, owned = false;
    };
    Entry * find(const CSound4 * sound);
    template <class Act>
    void each(Act && act); // sounds may come and go meanwhile

    std::vector<std::unique_ptr<Entry>> entries_; // in order of adding
    int walks_ = 0;
};
