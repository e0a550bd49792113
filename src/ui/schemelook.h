// The colours a window of the kit takes from the active colour scheme each time it becomes
// the active window. The kit does not know the scheme table; the main window hands each
// window a source that reads it at that moment.
#pragma once

#include "ui/olecolor.h"

#include <functional>

struct SchemeLook {
    quint32 background = SystemButtonFace; // colour 2: window and text backgrounds
    quint32 button = SystemButtonFace;     // colour 4: button faces
};

// Called at every activation; an empty source keeps the desktop's button face.
using SchemeLookSource = std::function<SchemeLook()>;
