// What assistive technology sees of the kit's windows and controls. The self-drawn button
// (BoxControl) is a push button named by its accessible name or, without one, by its caption.
// Windows and plain containers list only the children that show: a control that is hidden
// (the file picker's "..." button, a message's unused buttons and icons) is not in the tree.
// installKitAccessibility() registers this with QAccessible; every kit window calls it before
// the first query (later calls do nothing).
#pragma once

void installKitAccessibility();
