#pragma once

// A list of playables that plays as one: in order, one at random, or the one that a parameter names. It hears
// of its children's ends. Children that it made itself are its own; those that were added stay their makers'.
// Main thread.

#include "core/CXPoint.h"
#include "core/CXRect.h"
#include "core/CXVector.h"
#include "sequence/CPlayable.h"

#include <memory>

class CMElement;

class CSequencedPlayable : public CPlayable, public CPlayableObserver {
public:
    enum Mode { kInOrder = 1, kRandom = 2, kByParameter = 3 };

    explicit CSequencedPlayable(CWindow * window);
    // MODE (SEQUENCE, RANDOM, PARAMETER); the children are made of the elements below it.
    CSequencedPlayable(CWindow * window, CMElement * element);
    ~CSequencedPlayable() override;

    void addChild(CPlayable * child);
    int getCount() const { return children_.size; }
    // New lists, the caller's; nested sequences are walked through.
    CXVector * getAllAnimations() { return getAllOfType(kAnimation); }
    CXVector * getAllOfType(int kind);
    CPlayable * get(const CXString & name); // the first of that name, nested ones too; null without
    bool accure(CPlayable * playable);      // whether it occurs here, nested ones too
    CXRect getBoundingBox(int child);       // empty for a child that is no picture
    CXPoint getPosition(int child);
    // Of the child of that name; empty when it never played here.
    CXString getLastPlayedEvent(const CXString & name);

    using CPlayable::play;
    void play() override;
    void stop(bool report) override;
    void pause() override;
    void resume() override;
    void next() override; // in order: the next child if the present one has ended
    CPlayable * getPlaying() override;
    Kind getKind() override { return kSequence; }
    void alwaysOnTop() override;
    void move(int dx, int dy) override;
    void setPosition(int x, int y) override;
    void setVisibility(bool visible) override;
    void show() override;
    void hide() override;
    void setVolume(int volume) override;
    void setPanning(int panning) override;
    void setFrequency(int frequency) override;

    bool onPlayableFinished(CPlayable * child) override;
    void onPlayableGone(CPlayable * child) override { forgetChild(child); }
    void forgetChild(CPlayable * child) override;

private:
    CPlayable * child(int i) const;
    CPlayable * current() const { return child(index_); }
    void start(int i);
    void startFrom(int i); // on until a child that is waited for, or the last one
    void tune(CPlayable & child) const;

    mutable CXVector children_{11, 0.75F};         // CPlayable
    std::vector<std::unique_ptr<CPlayable>> made_; // the children that are this object's
    std::vector<CPlayable *> played_;              // those that have played here
    int index_ = -1;                               // of the playing child, -1 for none
    int ends_ = 0;                                 // that were told
    bool stopped_ = false;                         // without a report: what children tell is passed over
};
