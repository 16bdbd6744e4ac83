#pragma once
// GoogleTest with the matchers that most tests say by their bare names.

#include <gmock/gmock.h>

namespace ambrel {

using testing::AllOf;
using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;

}  // namespace ambrel
