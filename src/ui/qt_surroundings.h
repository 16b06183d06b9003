#pragma once

// The platform as the program asks for it: Qt's dialogs, printer, settings and clock.

#include "app/surroundings.h"
#include "core/recent_files.h"

#include <QList>
#include <QPointer>
#include <QSettings>
#include <QString>
#include <QWidget>

namespace kestrum {

// The dialog that names a file to write; the extension is added, an overwrite asked for.
struct FileKind {
    QString title, filter, suffix;
};
std::optional<std::string> AskForFile(QWidget* parent, const FileKind& kind,
                                      const std::string& folder, const std::string& proposal);

class QtSurroundings final : public Surroundings {
public:
    void SetWindow(QWidget* window) { window_ = window; }

    Answer Ask(std::string_view question) override;
    DiskAnswer AskAboutDisk(std::string_view question) override;
    // Shown without waiting for the answer, so that no input runs inside another; several are shown
    // one after the other.
    void Warn(std::string_view message) override;
    void Refuse(std::string_view message, std::string_view allowed) override;
    std::optional<std::string> ChooseFileToOpen(const std::string& folder) override;
    std::optional<std::string> ChooseFileToSave(const std::string& folder,
                                                const std::string& proposal) override;
    bool Print(const std::vector<Drawing>& pages) override;
    bool OpenDocument(const std::string& path) override;
    std::string Date() override;
    std::string Time() override;

private:
    struct Message {
        QString text, detail;
    };
    QWidget* Parent() const;
    void Show(const Message& message);
    void ShowNext();

    QPointer<QWidget> window_;
    QList<Message> waiting_;
    bool showing_ = false;
};

class QtSettings final : public SettingsStore {
public:
    // The platform's own store, or a file.
    QtSettings();
    explicit QtSettings(const QString& file);

    std::string Get(const std::string& value) const override;
    void Set(const std::string& value, const std::string& text) override;

    QSettings& settings() { return settings_; }

private:
    QSettings settings_;
};

}  // namespace kestrum
