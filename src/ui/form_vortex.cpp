#include "app/member_commands.h"
#include "core/project_state.h"
#include "report/choice_pictures.h"
#include "report/mode_shapes.h"
#include "service/modal.h"
#include "service/vortex.h"
#include "ui/forms.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

#include <memory>

namespace kestrum {

namespace {

QGroupBox* SupportGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frsupport"), QObject::tr("Member Restraint"));
    QHBoxLayout* const row = RowOf(group);
    for (int i = 0; i < static_cast<int>(kVortexSupports.size()); ++i) {
        const QString name = ToQt(kVortexSupports[static_cast<std::size_t>(i)].name).trimmed();
        PictureButton* const button = bind.PictureOption(
            QStringLiteral("btnVortex%1").arg(i), name, VortexSupportPicture(i),
            [i](const ProjectState& s) { return s.vortexcase == i; },
            [i](Session& session) { ChooseVortexSupport(session, i); });
        button->SetPictureSize({88, 44});
        button->setAccessibleName(name);
        row->addWidget(button);
    }
    return group;
}

QGroupBox* WindGroup(Binder& bind)
{
    QGroupBox* const group = Group(QStringLiteral("frwind"), QObject::tr("Wind data"));
    QGridLayout* const grid = GridOf(group);
    const auto row = [&](int at, const QString& label, std::string_view id, const QString& unit) {
        BoxEdit* const box = bind.Box(id);
        grid->addWidget(Caption(label, box), at, 0);
        grid->addWidget(box, at, 1);
        grid->addWidget(FaintLabel(unit), at, 2);
    };
    row(0, QStringLiteral("Wind speed vb (10min, 10 m) ="), "ivb", QStringLiteral("m/s"));
    row(1, QStringLiteral("Heigth z ="), "iz", QStringLiteral("m"));
    QStringList names;
    for (const Terrain& terrain : kTerrains) {
        names << ToQt(terrain.name);
    }
    QComboBox* const list = bind.List(
        QStringLiteral("cboTerrain"), names, [](const ProjectState& s) { return s.terrain; },
        ChooseTerrain);
    list->setToolTip(QObject::tr("Terrain category\nEN 1991-1-4, Table 4.1"));
    grid->addWidget(Caption(QObject::tr("Terrain category"), list), 2, 0);
    grid->addWidget(list, 2, 1);
    grid->setColumnStretch(3, 1);
    return group;
}

// The record in hand with the vortex values of its present section, length and wind, whatever the
// last pass has left in the frequency that the modal analysis shares.
using VortexView = std::shared_ptr<const ProjectState>;

VortexView FollowVortex(Binder& bind)
{
    const auto view = std::make_shared<ProjectState>();
    bind.Follow([view](const ProjectState& s) {
        *view = s;
        ControlVortices(*view, *view, *view);
    });
    return view;
}

QGroupBox* VerdictGroup(Binder& bind, const VortexView& view)
{
    QGroupBox* const group = Group(QStringLiteral("frresult"), QObject::tr("Results"));
    QGridLayout* const grid = GridOf(group);
    const auto value = [&](int row, const QString& head, const QString& name,
                           std::string (*text)(const Service&)) {
        grid->addWidget(new QLabel(head), row, 0);
        grid->addWidget(bind.Value(name, [view, text](const ProjectState&) { return text(*view); }),
                        row, 1);
    };
    value(0, QObject::tr("Natural frequency"), QStringLiteral("lblfreq"), VortexFrequencyText);
    value(1, QObject::tr("Wind speed Vm"), QStringLiteral("lblvm"), VortexMeanText);
    value(2, QObject::tr("Critical windspeed, Vcrit"), QStringLiteral("lblvcrit"),
          VortexCriticalText);
    grid->addWidget(new QLabel(bind.ForLocale(QStringLiteral("Control eq E.1: Vcrit >= 1.25Vm"))),
                    3, 0);
    QLabel* const verdict = bind.Text(QStringLiteral("lblOK"), [view](const ProjectState&) {
        return std::string(VortexVerdict(*view));
    });
    QFont bold = verdict->font();
    bold.setBold(true);
    verdict->setFont(bold);
    verdict->setAlignment(Qt::AlignRight);
    bind.Follow([verdict, view](const ProjectState&) {
        QPalette palette;
        const bool dark = IsDark(palette);
        const QColor good = dark ? QColor(0x5f, 0xd0, 0x7a) : QColor(0, 128, 0);
        const QColor bad = dark ? QColor(0xff, 0x6b, 0x6b) : QColor(0xc0, 0, 0);
        palette.setColor(QPalette::WindowText, VortexAccepted(*view) ? good : bad);
        verdict->setPalette(palette);
    });
    grid->addWidget(verdict, 3, 1);
    grid->setColumnStretch(2, 1);
    return group;
}

QTableWidget* VortexTable(Binder& bind, const VortexView& view)
{
    auto* const table = new QTableWidget(0, 3);
    table->setObjectName(QStringLiteral("gridvortex"));
    table->setAccessibleName(QObject::tr("Values of the vortex shedding control"));
    table->setHorizontalHeaderLabels(
        {QStringLiteral(" Parameter"), QStringLiteral("Value"), QStringLiteral("unit")});
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setAlternatingRowColors(true);
    table->setSelectionMode(QAbstractItemView::ContiguousSelection);
    table->horizontalHeader()->setStretchLastSection(true);
    bind.Follow([table, view, &bind](const ProjectState&) {
        const std::vector<VortexRow> rows = VortexGrid(*view, *view, *view);
        table->setRowCount(static_cast<int>(rows.size()));
        for (int i = 0; i < table->rowCount(); ++i) {
            const VortexRow& row = rows[static_cast<std::size_t>(i)];
            table->setItem(i, 0, new QTableWidgetItem(ToQt(row.parameter)));
            auto* const value = new QTableWidgetItem(bind.ForLocale(ToQt(row.value)));
            value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table->setItem(i, 1, value);
            table->setItem(i, 2, new QTableWidgetItem(ToQt(row.unit)));
        }
        table->resizeColumnsToContents();
        table->resizeRowsToContents();
        constexpr int kFrame = 4;
        table->setMinimumSize(table->horizontalHeader()->length() + kFrame,
                              table->horizontalHeader()->height() +
                                  table->verticalHeader()->length() + kFrame);
    });
    return table;
}

}  // namespace

Form* MakeVortex(Desk& desk, QWidget* parent)
{
    auto* const form =
        new Form(desk, "frmVortex",
                 QStringLiteral(" Vortex shedding according to EN 1991-1-4, Annex E"), parent);
    form->belongs = [](const ProjectState& s) { return VortexFamily(s.family); };
    Binder& bind = form->bind();
    const VortexView view = FollowVortex(bind);
    form->body()->addWidget(SupportGroup(bind));
    auto* const columns = new QGridLayout;
    columns->setSpacing(kGap);
    auto* const left = new QVBoxLayout;
    left->addWidget(WindGroup(bind));
    left->addWidget(VerdictGroup(bind, view));
    left->addStretch(1);
    columns->addLayout(left, 0, 0);
    columns->addWidget(VortexTable(bind, view), 0, 1);
    columns->setColumnStretch(1, 1);
    form->body()->addLayout(columns);
    form->Fold(columns);
    form->AddButtons();
    return form;
}

Form* MakeModal(Desk& desk, QWidget* parent)
{
    auto* const form =
        new Form(desk, "Modal_ns", QStringLiteral("Modal analysis for q-loads (SLS)"), parent);
    form->belongs = ModalResultShown;
    Binder& bind = form->bind();
    // From the last pass: the vortex shedding control keeps its own frequency in the same field.
    const auto text = [&](const QString& name, From<std::string> of) {
        form->body()->addWidget(
            bind.Text(name, [&desk, of](const ProjectState&) { return of(desk.session.shown()); }));
    };
    text(QStringLiteral("massa"), MassText);
    for (int mode = 1; mode <= 3; ++mode) {
        text(QStringLiteral("mod%1").arg(mode),
             [mode](const ProjectState& s) { return ModeText(s, mode); });
        Picture* const picture =
            bind.ResultFigure(QStringLiteral("picmode%1").arg(mode),
                              [mode](const ProjectState& s) { return DrawModeShape(s, mode); });
        picture->setMinimumSize(520, 90);
        form->body()->addWidget(picture, 1);
    }
    form->AddButtons();
    return form;
}

}  // namespace kestrum
