#pragma once

// A session whose surroundings answer from a script and note what they were asked.

#include "app/session.h"
#include "core/field_table.h"
#include "core/project_state.h"
#include "core/recent_files.h"
#include "support/delivered.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrum {

class ScriptedSurroundings final : public Surroundings {
public:
    // Answers, taken from the front; a cancel when there are no more.
    std::deque<Answer> answers;
    std::deque<DiskAnswer> diskanswers;  // later when there are no more
    std::deque<std::string> opens, saves;

    std::vector<std::string> questions, warnings, documents;
    std::vector<std::pair<std::string, std::string>> dialogs;  // folder, proposal
    std::vector<std::vector<Drawing>> printed;

    Answer Ask(std::string_view question) override
    {
        questions.emplace_back(question);
        if (answers.empty()) {
            return Answer::cancel;
        }
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    DiskAnswer AskAboutDisk(std::string_view question) override
    {
        questions.emplace_back(question);
        if (diskanswers.empty()) {
            return DiskAnswer::later;
        }
        const DiskAnswer answer = diskanswers.front();
        diskanswers.pop_front();
        return answer;
    }
    void Warn(std::string_view message) override { warnings.emplace_back(message); }
    std::optional<std::string> ChooseFileToOpen(const std::string& folder) override
    {
        dialogs.emplace_back(folder, "");
        return Next(opens);
    }
    std::optional<std::string> ChooseFileToSave(const std::string& folder,
                                                const std::string& proposal) override
    {
        dialogs.emplace_back(folder, proposal);
        return Next(saves);
    }
    bool Print(const std::vector<Drawing>& pages) override
    {
        printed.push_back(pages);
        return false;  // cancelled
    }
    bool OpenDocument(const std::string& path) override
    {
        documents.push_back(path);
        return true;
    }
    std::string Date() override { return "2024-05-17"; }
    std::string Time() override { return "14:05"; }

private:
    static std::optional<std::string> Next(std::deque<std::string>& paths)
    {
        if (paths.empty()) {
            return std::nullopt;
        }
        const std::string path = paths.front();
        paths.pop_front();
        return path;
    }
};

class MemoryStore final : public SettingsStore {
public:
    std::string Get(const std::string& value) const override
    {
        const auto at = values_.find(value);
        return at != values_.end() ? at->second : std::string{};
    }
    void Set(const std::string& value, const std::string& text) override { values_[value] = text; }

private:
    std::map<std::string, std::string> values_;
};

// A started program, with the pass that showing its window runs.
struct Program {
    ScriptedSurroundings desk;
    MemoryStore store;
    Session session;

    explicit Program(bool decimalcomma = false) : session(Delivered(), desk, decimalcomma)
    {
        session.Calculate();
    }

    const ProjectState& state() const { return session.state(); }
    ProjectState& edit() { return session.edit(); }

    // Whether the action runs a pass: every pass writes the area of the section anew.
    bool Calculates(const std::function<void()>& action)
    {
        const float area = edit().a;
        edit().a = -1;
        action();
        const bool ran = edit().a != -1;
        if (!ran) {
            edit().a = area;
        }
        return ran;
    }

    BoxOutcome Type(const char* form, const char* id, std::string_view text, int row = -1)
    {
        const Box* const box = FindBox(form, id);
        if (box == nullptr) {
            ADD_FAILURE() << form << "." << id;
            return {};
        }
        const bool rows = FindField(box->field)->shape == FieldShape::array;
        return session.CommitBox(*box, row >= 0 ? row : rows ? 1 : 0, text);
    }

    // The messages since the last call.
    std::vector<std::string> Told() { return std::exchange(desk.warnings, {}); }
};

using Texts = std::vector<std::string>;

}  // namespace kestrum
