#pragma once

// Surroundings in which nobody is there to answer.

#include "app/surroundings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

class SilentSurroundings final : public Surroundings {
public:
    Answer Ask(std::string_view) override { return Answer::cancel; }
    DiskAnswer AskAboutDisk(std::string_view) override { return DiskAnswer::later; }
    void Warn(std::string_view) override {}
    std::optional<std::string> ChooseFileToOpen(const std::string&) override { return {}; }
    std::optional<std::string> ChooseFileToSave(const std::string&, const std::string&) override
    {
        return {};
    }
    bool Print(const std::vector<Drawing>&) override { return false; }
    bool OpenDocument(const std::string&) override { return false; }
    std::string Date() override { return {}; }
    std::string Time() override { return {}; }
};

}  // namespace kestrum
