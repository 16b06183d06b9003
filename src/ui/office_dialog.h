#pragma once

// What the office writes on its reports, kept in the user's file: the same texts that the command
// line takes as options.

#include <QDialog>
#include <QString>

#include <map>
#include <string>

namespace kestrum {

class Session;
struct Office;

class OfficeDialog : public QDialog {
    Q_OBJECT

public:
    OfficeDialog(Session& session, QWidget* parent);

    // Saves; stays open with a message where the logo or the file is at fault.
    void accept() override;

private:
    QWidget* MakeBox(const std::string& name);
    Office Entered() const;

    Session& session_;
    std::map<std::string, QWidget*> boxes_;
};

}  // namespace kestrum
