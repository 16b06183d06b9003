#pragma once

// Whether the platform has a program for a kind of file. Where a desktop opens files through
// xdg-open, that says it did also when nothing, or nothing but a browser, came up.

#include <QString>

namespace kestrum {

// By the applications that the desktop lists for the type of the file. True where the platform is
// asked directly (Windows, macOS) or keeps its list to itself (sandboxes).
bool HasProgramFor(const QString& path);

}  // namespace kestrum
