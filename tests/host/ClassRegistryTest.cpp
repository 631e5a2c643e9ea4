#include "host/SystemClasses.h"

#include <gtest/gtest.h>

// The registry by which a host makes the objects of a package.

namespace {

using namespace System::Classes;

struct TFirst : TComponent {
  using TComponent::TComponent;
};

struct TSecond : TComponent {
  using TComponent::TComponent;
};

template <typename TClass> TComponentFactory FactoryOf() {
  return [](TComponent* owner) { return std::make_unique<TClass>(owner); };
}

TEST(ClassRegistry, MakesANewObjectOfARegisteredNameEachTime) {
  RegisterClass("Registry.Made", FactoryOf<TFirst>());
  TComponent owner(nullptr);
  const auto one = CreateRegistered("Registry.Made", &owner);
  const auto other = CreateRegistered("Registry.Made", nullptr);
  EXPECT_NE(dynamic_cast<TFirst*>(one.get()), nullptr);
  EXPECT_EQ(one->Owner(), &owner);
  EXPECT_EQ(other->Owner(), nullptr);
  EXPECT_NE(one, other);
}

TEST(ClassRegistry, TheLaterRegistrationOfANameCounts) {
  RegisterClass("Registry.Replaced", FactoryOf<TFirst>());
  RegisterClass("Registry.Replaced", FactoryOf<TSecond>());
  EXPECT_NE(dynamic_cast<TSecond*>(CreateRegistered("Registry.Replaced", nullptr).get()), nullptr);
}

TEST(ClassRegistry, AnUnknownNameMakesNothing) {
  EXPECT_EQ(CreateRegistered("Registry.Unknown", nullptr), nullptr);
  EXPECT_EQ(CreateRegistered("", nullptr), nullptr);
}

} // namespace
