#pragma once

#include "core/profiles.h"

namespace ambrel {

// What other slots of the profile have chosen and this one, which is to come to them, has not.
void inheritSettings(DockItem& item, const Profile& profile);

}  // namespace ambrel
