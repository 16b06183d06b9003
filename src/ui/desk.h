#pragma once

// What every window of the program shares: the session, the settings, and the way to other windows.

#include "app/session.h"
#include "ui/qt_surroundings.h"

#include <functional>
#include <string>
#include <string_view>

namespace kestrum {

class StandardDesk;

struct Desk {
    Session& session;
    QtSettings& store;
    std::string helppath = {};  // folder of the manuals, ends with a separator
    std::function<void(std::string_view form)> open = [](std::string_view) {};
    StandardDesk* standard = nullptr;  // of the main window, while there is one
};

}  // namespace kestrum
