#pragma once

// The file that holds a project as it is, for what is printed of it.

#include <string>

namespace kestrum {

struct ProjectState;

struct ProjectOrigin {
    std::string file{};    // without its folder; empty where no file holds the project
    std::string digest{};  // SHA-256 of the file
};

// Of the file that the record names, if that holds the very project.
ProjectOrigin OriginOf(const ProjectState& s);

// Of a file that was just read; nothing for standard input, "-".
ProjectOrigin OriginOf(const std::string& path);

}  // namespace kestrum
