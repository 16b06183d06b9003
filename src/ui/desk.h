#pragma once

// What every window of the program shares: the session, the settings, and the way to other windows.

#include "app/aside.h"
#include "app/session.h"
#include "core/check.h"
#include "ui/qt_surroundings.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kestrum {

class StandardDesk;

struct Desk {
    Session& session;
    QtSettings& store;
    std::string helppath = {};  // folder of the manuals, ends with a separator
    std::function<void(std::string_view form)> open = [](std::string_view) {};
    // A manual by its file below `helppath`, "guide/index.html", with its place behind a #.
    std::function<void(const std::string& file)> manual = [](const std::string&) {};
    StandardDesk* standard = nullptr;  // of the main window, while there is one
    // The table of members that was left behind.
    std::function<bool(LeftWork& work)> taketable = [](LeftWork&) { return false; };
    // The row of the result panel whose equations the user wants to see.
    std::optional<ResultRow> row{};
    std::function<void()> rowchanged = [] {};
};

}  // namespace kestrum
