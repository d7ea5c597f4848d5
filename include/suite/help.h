#pragma once

#include "suite/export.h"

/// Opens a topic of the online help.
///
/// A book is a directory of HTML pages under `RSR_HOME`/standard/help, a topic the page of that name; both
/// are found in their exact spelling first, then without regard to case. The page is shown in a window of its
/// own, which is a child of the active window, does not block it, and is used again by later calls; it opens
/// beside the active window where the screen has room for it. A missing topic opens the book's contents, the
/// page "index". Where there is no such book, or a name holds a path separator or "..", a message box says
/// that there is no help. Needs a QApplication, on its thread.
/// @param book   name of the book, UTF-8; null or empty for the reference, "orvane_ref".
/// @param topic  name of the topic, UTF-8; null or empty for the book's contents.
/// @param flags  0.
/// @return 1 if the topic itself was shown, else 0.
OVSUITE_API int OlhHelpCall(const char* book, const char* topic, int flags);
