#pragma once
// Workspace: what the desktop's own files and properties say about programs, windows and screen edges, and what
// may be asked of a running bar.

#include "core/base/Geometry.h"
#include "core/workspace/Applications.h"
#include "core/workspace/DesktopEntry.h"
#include "core/workspace/Processes.h"
#include "core/workspace/Struts.h"
#include "core/workspace/Wish.h"
