#pragma once

#include "core/base/JSON.h"

namespace ambrel {

// Made by script/sign-licence for "Ada", until 2030.
inline constexpr const char* licenceTestKey = "4YjkuPV1XrL+g9xcmOOEDcs4PUJ/zFMLbIkfdV58SyU=";
inline JSON signedLicence() {
  return {{"key", licenceTestKey},
          {"licence",
           "eyJwcm9kdWN0IjogInRpbGViYXkiLCAiaG9sZGVyIjogIkFkYSIsICJudW1iZXIiOiAiNWM3ZTc4YzgiLCAiZXhw"
           "aXJlcyI6ICIyMDMwLTAxLTAxVDAwOjAwOjAwWiJ9"},
          {"signature", "uzk7ubNGAIurVDOalWKaNLQx9Au5JqagixguIMStAqAsfQDLpAAd3czh4W02Rt62wpuuWPGGSN1nb2FJ7O6qAg=="}};
}

}  // namespace ambrel
