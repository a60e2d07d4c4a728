#include "components/Component.h"
#include "components/Ref.h"
#include "support/ErrorOf.h"

#include <gtest/gtest.h>

namespace {

struct Person {
    int age = 7;
    virtual ~Person() = default;
};

struct Patient : Person {};

TEST(Ref, ReachingThroughAnUnsetReferenceRaises91) {
    const Ref<Person> unset;
    const Ref<Person> null = nullptr;
    EXPECT_EQ(ErrorOf([&unset] { return unset->age; }), 91);
    EXPECT_EQ(ErrorOf([&unset] { return (*unset).age; }), 91);
    EXPECT_EQ(ErrorOf([&null] { return null->age; }), 91);
    EXPECT_FALSE(unset.IsSet());
}

TEST(Ref, ReachesTheObjectThatIsSet) {
    const auto patient = std::make_shared<Patient>();
    const Ref<Person> person = patient;
    EXPECT_TRUE(person.IsSet());
    EXPECT_EQ(person->age, 7);
    EXPECT_EQ(person.Shared(), patient);
}

TEST(Ref, CopiesReferToOneObject) {
    const Ref<Person> first = std::make_shared<Person>();
    const Ref<Person> second = first;
    second->age = 8;
    EXPECT_EQ(first->age, 8);
}

TEST(Ref, ASetReferenceCanBeUnset) {
    Ref<Person> person = std::make_shared<Person>();
    person = {};
    EXPECT_FALSE(person.IsSet());
    EXPECT_EQ(ErrorOf([&person] { return person->age; }), 91);
}

} // namespace
