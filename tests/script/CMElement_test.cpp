#include "script/CMElement.h"

#include "core/CXArray.h"
#include "script/CMElementCreator.h"
#include "script/CMElements.h"
#include "script/CMProperties.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

// The items in brackets, or "null".
std::string listed(CXArray * list) {
    if (!list) return "null";
    std::string text;
    for (int i = 0; i < list->size; i++) (text += '[') += std::string(list->stringAt(i)->view()) + ']';
    CXString::releaseToVector(list);
    return text;
}

std::string keys(CMElement & element) {
    std::string text;
    for (int i = 0; i < element.getProperties()->size; i++) {
        CMProperty * property = element.getProperties()->getAt(i);
        text += std::string(property->getName().view()) + "=" + property->getValue().c_str() + ";";
    }
    return text;
}

// Tells its death.
class Mortal : public CMElement {
public:
    Mortal(const CXString & name, int & deaths) : CMElement(name), deaths_(deaths) {}
    ~Mortal() override { deaths_++; }

private:
    int & deaths_;
};

} // namespace

TEST(CMElement, TurnsValuesIntoWhatIsAsked) {
    struct {
        const char * value;
        int number;
        bool flag;
        double real;
        const char * list;
        CXRect rect;
    } cases[] = {
        {"", 0, false, 0.0, "", CXRect(0)},
        {"12", 12, false, 12.0, "[12]", {12, 0, 0, 0}},
        {"-7.25cm", -7, false, -7.25, "[-7.25cm]", {-7, 0, 0, 0}},
        {"x1", 0, false, 0.0, "[x1]", CXRect(0)},
        {"TRUE", 0, true, 0.0, "[TRUE]", CXRect(0)},
        {"True", 0, true, 0.0, "[True]", CXRect(0)},
        {" true", 0, false, 0.0, "[true]", CXRect(0)},
        {"1", 1, false, 1.0, "[1]", {1, 0, 0, 0}},
        {", 1,,2 \n3\r4, 5", 0, false, 0.0, "[1][2][3][4][5]", {1, 2, 3, 4}},
        {"10 20", 10, false, 10.0, "[10][20]", {10, 20, 0, 0}},
        {"1.5|2;3", 1, false, 1.5, "[1.5|2;3]", {1, 0, 0, 0}},
    };
    for (auto & each : cases) {
        SCOPED_TRACE(each.value);
        CMElement element("A");
        element.addProperty("K", each.value);
        EXPECT_EQ(element.getPropertyValue("K"), each.value);
        EXPECT_EQ(element.getPropertyIntValue("K"), each.number);
        EXPECT_EQ(element.getPropertyBoolValue("K"), each.flag);
        EXPECT_EQ(element.getPropertyDoubleValue("K"), each.real);
        EXPECT_EQ(listed(element.getPropertyListValue("K")), each.list);
        EXPECT_EQ(element.getPropertyRectValue("K"), each.rect);
        EXPECT_EQ(element.getPropertyPointValue("K"), each.rect.LeftTop());
        EXPECT_EQ(element.getPropertySizeValue("K"), CXSize(each.rect.left, each.rect.top));
    }
}

TEST(CMElement, MissingKeysReadAsNothing) {
    CMElement element("A");
    element.addProperty("k", "1");
    EXPECT_EQ(element.getPropertyValue("K"), "");
    EXPECT_EQ(element.getPropertyIntValue("K"), 0);
    EXPECT_FALSE(element.getPropertyBoolValue("K"));
    EXPECT_EQ(element.getPropertyDoubleValue("K"), 0.0);
    EXPECT_EQ(listed(element.getPropertyListValue("K")), "null");
    EXPECT_EQ(element.getPropertyPointValue("K"), CXPoint());
    EXPECT_EQ(element.getPropertySizeValue("K"), CXSize());
    EXPECT_EQ(element.getPropertyRectValue("K"), CXRect());
}

TEST(CMElement, KeysAloneAreAddedOnceKeysWithValuesAlways) {
    CMElement element("A");
    element.addProperty("B");
    element.addProperty("B");
    element.addProperty("B", "1");
    element.addProperty("C", "2");
    element.addProperty("C", "3");
    element.addProperty("C");
    EXPECT_EQ(keys(element), "B=;B=1;C=2;C=3;");
    EXPECT_EQ(element.getPropertyValue("C"), "2");
    EXPECT_TRUE(element.isPropertyAvailable("C"));
    EXPECT_FALSE(element.isPropertyAvailable("c"));
    EXPECT_TRUE(element.hasProperty("c"));

    element.setProperty("C", "4");
    element.setProperty("D", "5");
    element.removeProperty("B");
    element.removeProperty("D");
    EXPECT_EQ(keys(element), "B=1;C=4;C=3;");
    element.removeAll();
    EXPECT_EQ(keys(element), "");
    element.addProperty("low", "1");
    EXPECT_FALSE(element.hasProperty("low")); // asks for LOW
}

TEST(CMProperty, EqualsByName) {
    CMProperty a("A", "1"), other("A", "2"), b("B", "1");
    EXPECT_TRUE(a.equals(&other));
    EXPECT_FALSE(a.equals(&b));
    b.setName("A");
    EXPECT_TRUE(a.equals(&b));
}

TEST(CMElements, OwnerDeletesWhatIsInIt) {
    int deaths = 0;
    auto * elements = new CMElements(true);
    auto * first = new Mortal("A", deaths);
    auto * child = new Mortal("B", deaths);
    elements->add(first);
    elements->add(new Mortal("A", deaths));
    elements->add(child);
    first->addChild(child);
    EXPECT_EQ(elements->get("A"), first);
    EXPECT_EQ(elements->get("a"), nullptr);
    EXPECT_TRUE(elements->contains("B"));
    EXPECT_TRUE(elements->contains(child));
    EXPECT_EQ(elements->getAt(2), child);

    auto stranger = std::make_unique<Mortal>("A", deaths);
    elements->remove(stranger.get());
    EXPECT_EQ(elements->size, 3);
    elements->remove(first); // its children stay
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(elements->size, 2);
    EXPECT_NE(elements->get("A"), nullptr);
    delete elements;
    EXPECT_EQ(deaths, 3);
}

TEST(CMElements, WithoutOwnershipOnlyRemoveDeletes) {
    int deaths = 0;
    auto * kept = new Mortal("B", deaths);
    {
        CMElements children(false);
        children.add(new Mortal("A", deaths));
        children.add(kept);
        children.remove(children.get("A"));
        EXPECT_EQ(deaths, 1);
    }
    EXPECT_EQ(deaths, 1);
    delete kept;
}

TEST(CMElementCreator, AsksTheMakerOfTheType) {
    CMElement unknown("A"), known("B");
    unknown.addProperty("TYPE", "test_picture");
    known.addProperty("TYPE", "TEST_PICTURE");
    CMElementCreator::addObject("TEST_PICTURE", [](CWindow *, CMElement * element) -> CXObject * {
        return new CMElement(element->getName() + "!");
    });
    EXPECT_EQ(CMElementCreator::createObject(nullptr, &unknown), nullptr);
    EXPECT_EQ(CMElementCreator::createPlayable(nullptr, &known), nullptr); // another table
    auto * made = static_cast<CMElement *>(CMElementCreator::createObject(nullptr, &known));
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->getName(), "B!");
    delete made;
}
