#pragma once

// What the program asks of the platform: message boxes, file and print dialogs, settings, the
// clock, other programs. The desktop answers with real dialogs, tests with a script.

#include "report/drawing.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

enum class Answer : std::uint8_t { yes, no, cancel };

// What to do about a file that has changed on the disk; `later` leaves everything as it is.
enum class DiskAnswer : std::uint8_t { reload, keep, saveas, later };

class Surroundings {
public:
    virtual ~Surroundings() = default;

    // Question icon, buttons Yes (the default), No and Cancel.
    virtual Answer Ask(std::string_view question) = 0;
    // Exclamation icon, buttons for the answers; Escape decides later.
    virtual DiskAnswer AskAboutDisk(std::string_view question) = 0;
    // Exclamation icon, one OK button. The text is shown as it stands, blanks included.
    virtual void Warn(std::string_view message) = 0;
    // A value that a box refuses: the same message, and below it what the box takes.
    virtual void Refuse(std::string_view message, std::string_view allowed)
    {
        static_cast<void>(allowed);
        Warn(message);
    }

    // File dialogs for `*.kst`; nothing when cancelled. The save dialog adds the extension and asks
    // before it overwrites.
    virtual std::optional<std::string> ChooseFileToOpen(const std::string& folder) = 0;
    virtual std::optional<std::string> ChooseFileToSave(const std::string& folder,
                                                        const std::string& proposal) = 0;

    // Print dialog (portrait), then the pages in millimetres. False when cancelled or failed.
    virtual bool Print(const std::vector<Drawing>& pages) = 0;

    // Opens a file with the program that the platform has for it; false when there is none. "#" and
    // a name behind the file ask for a place in it.
    virtual bool OpenDocument(const std::string& path) = 0;

    // Local date and time as the page head shows them.
    virtual std::string Date() = 0;
    virtual std::string Time() = 0;
};

}  // namespace kestrum
