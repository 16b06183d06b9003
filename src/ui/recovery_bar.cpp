#include "ui/recovery_bar.h"

#include "app/file_commands.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace kestrum {

RecoveryBar::RecoveryBar(Desk& desk, QWidget* parent)
    : QFrame(parent), desk_(desk), text_(new QLabel)
{
    setObjectName(QStringLiteral("recovery"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    text_->setObjectName(QStringLiteral("recoverytext"));
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, kGap, kMargin, kGap);
    row->setSpacing(kGap);
    row->addWidget(text_, 1);
    QPushButton* const restore = AddButton("recoveryrestore", tr("Re&store"));
    QPushButton* const discard = AddButton("recoverydiscard", tr("Disc&ard"));
    QPushButton* const later = AddButton("recoverylater", tr("La&ter"));
    restore->setToolTip(
        tr("Makes it the current project, which Undo takes back; a table of members is "
           "opened in its window"));
    discard->setToolTip(tr("Deletes it"));
    later->setToolTip(tr("Keeps it for the next start"));
    for (QPushButton* const button : {restore, discard, later}) {
        row->addWidget(button);
    }
    connect(restore, &QPushButton::clicked, this, [this] {
        LeftWork& work = works_.front();
        if (work.table ? desk_.taketable(work) : TakeUp(desk_.session, work)) {
            DropFirst();
        }
    });
    connect(discard, &QPushButton::clicked, this, [this] {
        Discard(works_.front());
        DropFirst();
    });
    connect(later, &QPushButton::clicked, this, &RecoveryBar::DropFirst);
    hide();
}

QPushButton* RecoveryBar::AddButton(const char* name, const QString& text)
{
    auto* const button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

void RecoveryBar::Offer(std::vector<LeftWork> works)
{
    works_ = std::move(works);
    ShowFirst();
}

void RecoveryBar::ShowFirst()
{
    setVisible(!works_.empty());
    if (works_.empty()) {
        return;
    }
    const LeftWork& work = works_.front();
    const QString project = ToQt(work.project);
    const QString name = !project.isEmpty() && work.project != kNewFile
                             ? QFileInfo(project).fileName()
                         : work.table ? tr("a table of members without a file")
                                      : tr("a project without a file");
    QString text = tr("Work that was not saved: %1, %2").arg(name, ToQt(work.when));
    if (works_.size() > 1) {
        text += tr("  (1 of %1)").arg(works_.size());
    }
    text_->setText(text);
    text_->setToolTip(project);
    setAccessibleName(text);
}

void RecoveryBar::DropFirst()
{
    works_.erase(works_.begin());
    ShowFirst();
}

}  // namespace kestrum
