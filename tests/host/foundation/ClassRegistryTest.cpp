#include "host/foundation/ClassRegistry.h"

#include <atomic>
#include <thread>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/FoundationClasses.h"
#include "host/foundation/Image.h"
#include "host/foundation/UndoManager.h"

namespace zor {
namespace {

TEST(ClassRegistryTest, RootClassIsObject) {
    EXPECT_EQ(Object::staticClass().name(), "Object");
    EXPECT_EQ(Object::staticClass().base(), nullptr);
    EXPECT_EQ(ClassRegistry::shared().find("Object"), &Object::staticClass());
    EXPECT_FALSE(Object::staticClass().isCreatable());
    EXPECT_EQ(Object::staticClass().create(), nullptr);
}

TEST(ClassRegistryTest, UnknownNameFindsNothing) {
    EXPECT_EQ(ClassRegistry::shared().find("NoSuchClass"), nullptr);
}

TEST(ClassRegistryTest, FoundationClassesAreFoundByName) {
    registerFoundationClasses();
    ASSERT_NE(ClassRegistry::shared().find("Image"), nullptr);
    ASSERT_NE(ClassRegistry::shared().find("UndoManager"), nullptr);
    EXPECT_NE(std::dynamic_pointer_cast<Image>(ClassRegistry::shared().find("Image")->create()), nullptr);
    EXPECT_NE(std::dynamic_pointer_cast<UndoManager>(ClassRegistry::shared().find("UndoManager")->create()), nullptr);
    EXPECT_EQ(ClassRegistry::shared().find("Image")->bundle(), nullptr);
}

TEST(ClassRegistryTest, TakenNameKeepsItsFirstRecord) {
    auto& registry = ClassRegistry::shared();
    const auto& first = registry.add(std::make_unique<ClassRecord>("TakenName", nullptr));
    const auto& second = registry.add(std::make_unique<ClassRecord>("TakenName", &Object::staticClass()));
    EXPECT_EQ(&first, &second);
    EXPECT_EQ(registry.find("TakenName"), &first);
    EXPECT_EQ(first.base(), nullptr);
}

TEST(ClassRegistryTest, KindFollowsTheBaseClasses) {
    const ClassRecord base("Base", &Object::staticClass());
    const ClassRecord derived("Derived", &base);
    const ClassRecord namesake("Base", &Object::staticClass());
    EXPECT_TRUE(derived.isKindOf(derived));
    EXPECT_TRUE(derived.isKindOf(base));
    EXPECT_TRUE(derived.isKindOf(Object::staticClass()));
    EXPECT_FALSE(base.isKindOf(derived));
    EXPECT_FALSE(derived.isKindOf(namesake));
}

TEST(ClassRegistryTest, OtherThreadsFindWhileClassesAreAdded) {
    auto& registry = ClassRegistry::shared();
    std::atomic<bool> stop = false;
    std::atomic<bool> lost = false;
    Object::staticClass();
    std::thread reader([&] {
        while (!stop) {
            if (!registry.find("Object")) lost = true;
        }
    });
    for (int number = 0; number < 500; ++number) {
        registry.add(std::make_unique<ClassRecord>("Added" + std::to_string(number), nullptr));
    }
    stop = true;
    reader.join();
    EXPECT_FALSE(lost);
    EXPECT_NE(registry.find("Added499"), nullptr);
}

}  // namespace
}  // namespace zor
