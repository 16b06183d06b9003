#pragma once

// The desktop of the tests: the real windows over surroundings that answer as they are told.

#include "core/project_state.h"
#include "support/delivered.h"
#include "ui/main_window.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kestrum {

class Script final : public Surroundings {
public:
    std::vector<std::string> warnings, questions, opened;
    std::vector<std::vector<Drawing>> printed;
    Answer answer = Answer::no;
    DiskAnswer diskanswer = DiskAnswer::later;
    std::optional<std::string> openpath, savepath;
    bool opens = true;

    Answer Ask(std::string_view question) override
    {
        questions.emplace_back(question);
        return answer;
    }
    DiskAnswer AskAboutDisk(std::string_view question) override
    {
        questions.emplace_back(question);
        return diskanswer;
    }
    void Warn(std::string_view message) override { warnings.emplace_back(message); }
    std::optional<std::string> ChooseFileToOpen(const std::string&) override { return openpath; }
    std::optional<std::string> ChooseFileToSave(const std::string&, const std::string&) override
    {
        return savepath;
    }
    bool Print(const std::vector<Drawing>& pages) override
    {
        printed.push_back(pages);
        return true;
    }
    bool OpenDocument(const std::string& path) override
    {
        opened.push_back(path);
        return opens;
    }
    std::string Date() override { return "2024-05-17"; }
    std::string Time() override { return "14:05"; }
};

// A program that has started, with its window shown and active.
class Desktop : public testing::Test {
public:
    explicit Desktop(bool decimalcomma = false, std::string commandline = {});

    template <class T> T& Find(const QString& name, QWidget* in = nullptr)
    {
        T* const found = (in != nullptr ? in : window.get())->findChild<T*>(name);
        if (found == nullptr) {
            throw std::runtime_error("no such control: " + name.toStdString());
        }
        return *found;
    }

    // Shows the form; throws when it stays closed.
    Form& Open(std::string_view name);

    // As a user does.
    void Click(const QString& name, QWidget* in = nullptr);
    void Choose(const QString& list, int index, QWidget* in = nullptr);
    void Type(QWidget& box, const QString& text);  // over what stands there, then Tab
    void Menu(const QString& action);
    static void Settle();

    const ProjectState& state() const { return session.state(); }

    QTemporaryDir folder;
    Script script;
    QtSettings store;
    Session session;
    Desk desk;
    std::unique_ptr<MainWindow> window;
};

// What Qt has complained about since the last call.
QStringList TakeComplaints();

}  // namespace kestrum
