#pragma once

// A table of members beside the project: opened, edited, rated as it is typed, saved; a line opened
// as the project and written back; ratios under a table of forces; lightest sections. All
// calculation runs beside the window and can be cancelled.

#include "app/aside.h"
#include "app/disk_file.h"
#include "app/job_queue.h"
#include "app/member_line.h"
#include "ui/desk.h"
#include "ui/members_model.h"

#include <QKeySequence>
#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QHBoxLayout;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTableView;

namespace kestrum {

class MembersProxy;

class MembersWindow final : public QWidget {
    Q_OBJECT

public:
    MembersWindow(Desk& desk, QWidget* parent);
    ~MembersWindow() override;

    // Opens the table of this name; false when it cannot be read, which the user is told.
    bool OpenTable(const std::string& path);

    // The table that an earlier window has left unsaved, in place of the one in hand, unsaved here.
    bool TakeUp(LeftWork& work);

    // Asks about an edited table; false when the user wants to go on with it.
    bool MayLeave();

    MembersModel& model() { return model_; }
    bool busy() const { return jobs_.busy(); }

    // The dialogs that name a file: to read or to write. Tests answer themselves.
    std::function<std::optional<std::string>(const QString& title, bool write)> choosefile;
    // Families, series or sections among which the lightest is looked for.
    std::function<std::optional<QString>(const QString& proposal)> choosepool;
    std::function<std::optional<QString>()> choosecolumn;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct Command {
        QPushButton* button;
        std::vector<QKeySequence> keys;
        std::function<void()> run;
    };
    void BuildCommands();
    QPushButton* AddButton(QHBoxLayout* row, const char* name, const QString& text,
                           const QString& tip, std::vector<QKeySequence> keys,
                           std::function<void()> run);
    void AddKeys(std::vector<QKeySequence> keys, std::function<void()> run);
    const Command* Find(const QKeyEvent& event) const;
    void AskForTable();
    bool Save(bool elsewhere);
    void ShowTable();
    void SetAside();
    void Paste();
    void ChooseForces();
    void ChooseSections();
    void TakeLightest(const std::vector<std::size_t>& rows, const std::vector<std::string>& words);
    std::vector<std::size_t> SelectedRows() const;
    std::optional<MembersSheet::Range> Selected() const;
    LineSource Source() const;
    void Cancel();
    void RateAll();
    void Rate(const std::vector<std::size_t>& rows);
    void Poll();
    void Refresh();
    void RefreshState();
    std::string TableName() const;

    Desk& desk_;
    MembersModel model_;
    MembersProxy* proxy_;
    QTableView* view_;
    QLineEdit* search_;
    QLabel* state_;
    QProgressBar* progress_;
    QPushButton* cancel_;
    QPushButton *undo_ = nullptr, *redo_ = nullptr;
    std::vector<Command> commands_;
    std::string path_;  // empty: never saved
    DiskFile disk_;
    std::optional<std::string> digest_;  // of what that knows, once it was asked for
    std::shared_ptr<const ProjectState> base_;
    std::shared_ptr<const ForceCases> forces_;
    MemberLine line_;
    std::vector<std::string> refusals_;  // of the search for sections
    std::set<std::uint64_t> pending_;    // lines whose rating is under way
    QTimer timer_;
    JobQueue jobs_;
};

}  // namespace kestrum
