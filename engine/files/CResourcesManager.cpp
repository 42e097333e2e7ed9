#include "files/CResourcesManager.h"

#include "files/CFileResolver.h"

#include <algorithm>
#include <memory>

struct CResourcesManager::Entry {
    explicit Entry(CFileResolver * of) : name(of->getFileName()), resource(of) {}

    CXString name;
    std::unique_ptr<CFileResolver> resource;
    int users = 1;
};

CResourcesManager::CResourcesManager(CWindow * window) : window_(window) {}

CResourcesManager::~CResourcesManager() {
    flush();
    if (parent_) parent_->remove(this);
}

int CResourcesManager::find(CFileResolver * resource) {
    for (int i = 0; i < entries_.size; i++)
        if (at(i)->resource.get() == resource) return i;
    return -1;
}

void CResourcesManager::add(CFileResolver * resource) { insertAt(resource, entries_.size); }

void CResourcesManager::insertAt(CFileResolver * resource, int i) {
    if (resource) entries_.insertAt(std::clamp(i, 0, entries_.size), new Entry(resource));
}

bool CResourcesManager::remove(CFileResolver * resource) {
    int i = find(resource);
    if (i < 0 || --at(i)->users > 0) return false;
    // Off the list first: stopping may tell observers, who must not be handed what is about to go.
    std::unique_ptr<Entry> entry(at(i));
    entries_.removeAt(i);
    resource->retire();
    return true;
}

bool CResourcesManager::contains(CFileResolver * resource) { return find(resource) >= 0; }

CFileResolver * CResourcesManager::get(const CXString & name) {
    for (int i = 0; i < entries_.size; i++) {
        if (!at(i)->name.equalsIgnoreCase(name)) continue;
        at(i)->users++;
        return at(i)->resource.get();
    }
    for (CXObject * child : children_)
        if (CFileResolver * hit = static_cast<CResourcesManager *>(child)->get(name)) return hit;
    return nullptr;
}

void CResourcesManager::flush() {
    for (CXObject * each : children_) {
        auto * child = static_cast<CResourcesManager *>(each);
        child->parent_ = nullptr;
        child->flush();
    }
    children_.removeAll();
    while (entries_.size > 0) {
        std::unique_ptr<Entry> entry(at(0));
        entries_.removeAt(0);
    }
}

void CResourcesManager::add(CResourcesManager * child) {
    if (!child || child == this || child->parent_ == this) return;
    if (child->parent_) child->parent_->remove(child);
    child->parent_ = this;
    children_.add(child);
}

void CResourcesManager::remove(CResourcesManager * child) {
    if (!child || child->parent_ != this) return;
    child->parent_ = nullptr;
    children_.remove(child);
}
