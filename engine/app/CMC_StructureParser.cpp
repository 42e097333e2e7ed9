#include "app/CMC_StructureParser.h"

#include "app/CMC_Application.h"
#include "app/CMC_Episode.h"
#include "app/CWindow.h"
#include "script/CMC_RunnerFactory.h"
#include "script/CMC_VariableFactory.h"
#include "script/CMElement.h"
#include "script/CMElements.h"
#include "script/CMElementsLoader.h"
#include "script/Notes.h"

#include <memory>

CMC_StructureParser::CMC_StructureParser(CWindow * window, const CXString & fileName) : window_(window) {
    CMC_VariableFactory::initialize();
    CMC_RunnerFactory::initialize();
    load(fileName);
}

CMC_StructureParser::~CMC_StructureParser() {
    // Without an application nobody else has them.
    if (!application_)
        for (CXObject * each : objects_) delete each;
    CMC_VariableFactory::done();
    CMC_RunnerFactory::done();
}

CXObject * CMC_StructureParser::get(const CXString & name) {
    for (CXObject * each : objects_)
        if (static_cast<CMC_Object *>(each)->getName() == name) return each;
    return nullptr;
}

std::vector<CMC_Scene *> CMC_StructureParser::listed(CMElement * element, const CXString & key) {
    std::vector<CMC_Scene *> scenes;
    CXArray * names = element->getPropertyListValue(key);
    for (int i = 0; names && i < names->size; i++) {
        CXObject * found = get(*names->stringAt(i));
        if (found)
            scenes.push_back(static_cast<CMC_Scene *>(found));
        else
            notes::add(notes::Kind::unknownObject, element->getName().view(), key.view(),
                       std::string(names->stringAt(i)->view()) + " is no scene or episode");
    }
    CXString::releaseToVector(names);
    return scenes;
}

void CMC_StructureParser::load(const CXString & fileName) {
    std::unique_ptr<CMElements> elements(CMElementsLoader::load(window_, fileName));
    if (!elements) return;
    auto each = [&](const char * type, auto && make) {
        for (int i = 0; i < elements->size; i++)
            if (elements->getAt(i)->getPropertyValue("TYPE") == type) make(elements->getAt(i));
    };
    // Scenes first: an episode finds its own by name, and the application its episodes.
    each("SCENE", [&](CMElement * e) { objects_.add(new CMC_Scene(window_, nullptr, e, types::kScene)); });
    each("EPISODE", [&](CMElement * e) { objects_.add(new CMC_Episode(window_, this, e)); });
    // The last one counts: two would own the same scenes.
    CMElement * definition = nullptr;
    each("APPLICATION", [&](CMElement * e) { definition = e; });
    if (!definition) return;
    if (definition->getName() == "DEMO") definition->setName("GAME");
    application_ = new CMC_Application(window_, this, definition);
    objects_.add(application_);
}
