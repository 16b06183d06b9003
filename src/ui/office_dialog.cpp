#include "ui/office_dialog.h"

#include "app/session.h"
#include "report/office.h"
#include "ui/text.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace kestrum {

namespace {

constexpr std::string_view kLogo = "logo", kDecimal = "decimal";

struct Caption {
    std::string_view name;
    const char* text;
};
constexpr std::array<Caption, 8> kCaptions{{{"company", QT_TR_NOOP("C&ompany")},
                                            {"logo", QT_TR_NOOP("&Logo (PNG or SVG)")},
                                            {"projectnumber", QT_TR_NOOP("Project &number")},
                                            {"author", QT_TR_NOOP("&Author")},
                                            {"checker", QT_TR_NOOP("Chec&ker")},
                                            {"revision", QT_TR_NOOP("&Revision")},
                                            {"date", QT_TR_NOOP("&Date in place of today")},
                                            {"decimal", QT_TR_NOOP("Decimal &sign")}}};

QString ValueOf(const QWidget* box)
{
    if (const auto* const list = qobject_cast<const QComboBox*>(box)) {
        return list->currentData().toString();
    }
    return qobject_cast<const QLineEdit*>(box)->text();
}

void SetValue(QWidget* box, const QString& value)
{
    if (auto* const list = qobject_cast<QComboBox*>(box)) {
        list->setCurrentIndex(std::max(list->findData(value), 0));
    } else {
        qobject_cast<QLineEdit*>(box)->setText(value);
    }
}

}  // namespace

OfficeDialog::OfficeDialog(Session& session, QWidget* parent) : QDialog(parent), session_(session)
{
    setObjectName(QStringLiteral("office"));
    setWindowTitle(tr("Office data"));
    auto* const body = new QVBoxLayout(this);
    auto* const rows = new QFormLayout;
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    body->addLayout(rows);
    Office office;
    const std::string fault = ReadUserOffice(office);
    for (const Caption& caption : kCaptions) {
        QWidget* const row = MakeBox(std::string(caption.name));
        auto* const label = new QLabel(tr(caption.text));
        label->setBuddy(boxes_.at(std::string(caption.name)));
        rows->addRow(label, row);
    }
    for (const OfficeField& field : OfficeFields()) {
        SetValue(boxes_.at(std::string(field.name)), ToQt(office.*(field.value)));
    }
    auto* const hint = new QLabel(
        tr("Stands on each page of all reports. An empty date is that of printing; project number "
           "and revision are of the project, and are to be changed with it."));
    hint->setWordWrap(true);
    hint->setMinimumWidth(420);
    body->addWidget(hint);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &OfficeDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OfficeDialog::reject);
    body->addWidget(buttons);
    if (!fault.empty()) {
        session_.surroundings().Warn(fault);
    }
}

// The control of a field, with a button for the file of the logo.
QWidget* OfficeDialog::MakeBox(const std::string& name)
{
    QWidget* box = nullptr;
    if (name == kDecimal) {
        auto* const list = new QComboBox;
        list->addItem(tr("point, 1.5"), QStringLiteral("point"));
        list->addItem(tr("comma, 1,5"), QStringLiteral("comma"));
        box = list;
    } else {
        box = new QLineEdit;
    }
    box->setObjectName(QStringLiteral("office") + ToQt(name));
    boxes_.emplace(name, box);
    if (name != kLogo) {
        return box;
    }
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(box, 1);
    auto* const browse = new QPushButton(tr("&Browse..."));
    browse->setObjectName(QStringLiteral("officebrowse"));
    connect(browse, &QPushButton::clicked, this, [this, box] {
        const QString file = QFileDialog::getOpenFileName(this, tr("Logo"), ValueOf(box),
                                                          tr("Pictures (*.png *.svg)"));
        if (!file.isEmpty()) {
            SetValue(box, file);
        }
    });
    layout->addWidget(browse);
    return row;
}

Office OfficeDialog::Entered() const
{
    Office office;
    for (const OfficeField& field : OfficeFields()) {
        office.*(field.value) = FromQt(ValueOf(boxes_.at(std::string(field.name))).trimmed());
    }
    return office;
}

void OfficeDialog::accept()
{
    const Office office = Entered();
    Logo logo;
    std::string fault = ReadOfficeLogo(office, logo);
    if (fault.empty()) {
        fault = SaveUserOffice(office);
    }
    if (!fault.empty()) {
        session_.surroundings().Warn(fault);
        return;
    }
    QDialog::accept();
}

}  // namespace kestrum
