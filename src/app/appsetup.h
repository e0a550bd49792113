// The program-wide identity of the running application, set once before the first window.
#pragma once

// Sets the application name (which names the per-user data folder), the desktop entry and the
// window icon. It deliberately sets no application display name: Qt's X11 and Wayland back
// ends append that to every window title, and the titles must read exactly as the windows set
// them.
// Precondition: a QApplication exists.
void setUpApplication();
