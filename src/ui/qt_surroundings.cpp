#include "ui/qt_surroundings.h"

#include "render/painter.h"
#include "ui/document_program.h"
#include "ui/print_pages.h"
#include "ui/text.h"

#include <QApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QUrl>

namespace kestrum {

namespace {

const auto kProduct = QStringLiteral("Kestrum EC3");
const auto kFilter = QStringLiteral("Kestrum EC3 (*.kst)");

QString KeyOf(const std::string& value)
{
    return ToQt(kSettingsSection) + QLatin1Char('/') + ToQt(value);
}

}  // namespace

std::optional<std::string> AskForFile(QWidget* parent, const FileKind& kind,
                                      const std::string& folder, const std::string& proposal)
{
    QFileDialog dialog(parent, kind.title, ToQt(folder), kind.filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(kind.suffix);
    if (proposal.find('*') == std::string::npos) {  // a pattern is no name; the filter shows it
        dialog.selectFile(ToQt(proposal));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return FromQt(dialog.selectedFiles().constFirst());
}

QWidget* QtSurroundings::Parent() const
{
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr ? active : window_.data();
}

Answer QtSurroundings::Ask(std::string_view question)
{
    QMessageBox box(QMessageBox::Question, kProduct, ToQt(question),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, Parent());
    box.setDefaultButton(QMessageBox::Yes);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::yes;
    case QMessageBox::No:
        return Answer::no;
    default:
        return Answer::cancel;
    }
}

DiskAnswer QtSurroundings::AskAboutDisk(std::string_view question)
{
    QMessageBox box(QMessageBox::Warning, kProduct, ToQt(question), QMessageBox::NoButton,
                    Parent());
    box.setTextFormat(Qt::PlainText);
    const QAbstractButton* const reload =
        box.addButton(QMessageBox::tr("&Reload"), QMessageBox::AcceptRole);
    const QAbstractButton* const keep =
        box.addButton(QMessageBox::tr("&Keep mine"), QMessageBox::DestructiveRole);
    QPushButton* const saveas =
        box.addButton(QMessageBox::tr("&Save as..."), QMessageBox::ActionRole);
    QPushButton* const later =
        box.addButton(QMessageBox::tr("&Decide later"), QMessageBox::RejectRole);
    box.setDefaultButton(saveas);  // the one answer that loses nothing
    box.setEscapeButton(later);
    box.exec();
    const QAbstractButton* const clicked = box.clickedButton();
    return clicked == reload   ? DiskAnswer::reload
           : clicked == keep   ? DiskAnswer::keep
           : clicked == saveas ? DiskAnswer::saveas
                               : DiskAnswer::later;
}

void QtSurroundings::Warn(std::string_view message)
{
    Show({ToQt(message), {}});
}

void QtSurroundings::Refuse(std::string_view message, std::string_view allowed)
{
    Show({ToQt(message), ToQt(allowed)});
}

void QtSurroundings::Show(const Message& message)
{
    waiting_.append(message);
    if (!showing_) {
        ShowNext();
    }
}

void QtSurroundings::ShowNext()
{
    showing_ = !waiting_.isEmpty();
    if (!showing_) {
        return;
    }
    const Message message = waiting_.takeFirst();
    auto* const box =
        new QMessageBox(QMessageBox::Warning, kProduct, message.text, QMessageBox::Ok, Parent());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(message.detail);
    QObject::connect(box, &QDialog::finished, box, [this] { ShowNext(); });
    box->open();
}

std::optional<std::string> QtSurroundings::ChooseFileToOpen(const std::string& folder)
{
    const QString path = QFileDialog::getOpenFileName(Parent(), QFileDialog::tr("Open project"),
                                                      ToQt(folder), kFilter);
    return path.isEmpty() ? std::nullopt : std::optional(FromQt(path));
}

std::optional<std::string> QtSurroundings::ChooseFileToSave(const std::string& folder,
                                                            const std::string& proposal)
{
    return AskForFile(Parent(), {QFileDialog::tr("Save project as"), kFilter, "kst"}, folder,
                      proposal);
}

bool QtSurroundings::Print(const std::vector<Drawing>& pages)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setFullPage(true);
    QPrintDialog dialog(&printer, Parent());
    if (pages.empty() || dialog.exec() != QDialog::Accepted) {
        return false;
    }
    if (const std::string fault = UnreadablePicture(pages); !fault.empty()) {
        Warn(fault);
    }
    return PrintPages(printer, pages);
}

bool QtSurroundings::OpenDocument(const std::string& path)
{
    QString file = ToQt(path), place;
    if (const qsizetype at = file.lastIndexOf(QLatin1Char('#'));
        at > 0 && !QFileInfo::exists(file)) {
        place = file.mid(at + 1);
        file.truncate(at);
    }
    QUrl url = QUrl::fromLocalFile(file);
    url.setFragment(place);
    return QFileInfo::exists(file) && HasProgramFor(file) && QDesktopServices::openUrl(url);
}

std::string QtSurroundings::Date()
{
    return FromQt(QLocale::c().toString(QDate::currentDate(), QStringLiteral("yyyy-MM-dd")));
}

std::string QtSurroundings::Time()
{
    return FromQt(QLocale::c().toString(QTime::currentTime(), QStringLiteral("h:mm")));
}

QtSettings::QtSettings()
    : settings_(QSettings::NativeFormat, QSettings::UserScope, ToQt(kSettingsApplication),
                ToQt(kSettingsApplication))
{
}

QtSettings::QtSettings(const QString& file) : settings_(file, QSettings::IniFormat) {}

std::string QtSettings::Get(const std::string& value) const
{
    return FromQt(settings_.value(KeyOf(value)).toString());
}

void QtSettings::Set(const std::string& value, const std::string& text)
{
    settings_.setValue(KeyOf(value), ToQt(text));
    settings_.sync();
}

}  // namespace kestrum
