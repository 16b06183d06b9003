#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/view_member.h"
#include "core/project_inputs.h"
#include "report/choice_pictures.h"
#include "sections/families.h"
#include "ui/forms.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <array>

namespace kestrum {

namespace {

constexpr QSize kSigns(330, 96);

QGroupBox* EndForceGroup(Binder& bind, const QString& name, const QString& title,
                         std::initializer_list<std::string_view> ids, const char* moment,
                         const char* shear)
{
    QGroupBox* const group = Group(name, title);
    QGridLayout* const grid = GridOf(group);
    int row = 0;
    for (const std::string_view id : ids) {
        bind.BoxRow(grid, row / 2, *FindBox("endforce", id), row % 2 * 3);
        ++row;
    }
    auto* const signs = new Picture(QStringLiteral("signs") + QLatin1Char(name.back().toLatin1()));
    signs->Show(EndForcePicture(moment, shear));
    signs->setAccessibleName(
        QObject::tr("Positive: moments that bend the member downwards, shear forces up on end 1 "
                    "and down on end 2, compression"));
    signs->setToolTip(signs->accessibleName());
    signs->setMinimumSize(kSigns);
    grid->addWidget(signs, 2, 0, 1, 7);
    grid->setColumnStretch(6, 1);
    return group;
}

Form* MakeBuckling(Desk& desk, QWidget* parent, Axis axis)
{
    const bool y = axis == Axis::y;
    auto* const form = new Form(desk, y ? "bucklingy" : "bucklingz",
                                y ? QObject::tr("Buckling length factors - Y-axis")
                                  : QObject::tr("Buckling length factors - Z-axis"),
                                parent);
    Binder& bind = form->bind();
    auto* const row = new QHBoxLayout;
    row->setSpacing(kGap);
    const QStringList captions{QStringLiteral("2.0"), QStringLiteral("1.0"), QStringLiteral("0.7"),
                               QStringLiteral("0.5"), QObject::tr("None / own")};
    for (int choice = 1; choice <= captions.size(); ++choice) {
        PictureButton* const button = bind.PictureOption(
            QStringLiteral("buckling%1%2").arg(y ? QLatin1Char('y') : QLatin1Char('z')).arg(choice),
            {}, BucklingPicture(choice),
            [y, choice](const ProjectState& s) {
                const int chosen = y ? InputsOf(s).bucklingcasey : InputsOf(s).bucklingcasez;
                return chosen == choice || (choice == 5 && chosen > choice);
            },
            [axis, choice](Session& session) { ChooseBucklingCase(session, axis, choice); });
        button->SetPictureSize({84, 170});
        button->setToolTip(bind.ForLocale(captions.at(choice - 1)));
        button->setAccessibleName(QObject::tr("Buckling length factor ") + captions.at(choice - 1));
        row->addWidget(button);
    }
    form->body()->addLayout(row);
    form->body()->addStretch(1);
    QLabel* const hint = FaintLabel(
        QObject::tr("The last choice means no buckling about this axis; an own factor may then be\n"
                    "typed in the main window. Curve: EN 1993-1-1, Table 6.2"));
    form->body()->addWidget(hint);
    form->AddButtons();
    return form;
}

}  // namespace

Form* MakeEndForce(Desk& desk, QWidget* parent)
{
    auto* const form = new Form(desk, "endforce", QObject::tr("Endforce"), parent);
    Binder& bind = form->bind();
    form->body()->addWidget(
        FaintLabel(QStringLiteral("Shall be used for members with only joint forces")));
    QGroupBox* const axial = Group(QStringLiteral("frn"), QObject::tr("Axial force"));
    QGridLayout* const grid = GridOf(axial);
    bind.BoxRow(grid, 0, *FindBox("endforce", "ine"));
    grid->addWidget(FaintLabel(QStringLiteral(" (+=compression)")), 0, 3);
    grid->setColumnStretch(4, 1);
    QGroupBox* const y =
        EndForceGroup(bind, QStringLiteral("frmy"), QObject::tr("About the y axis"),
                      {"imy1", "imy2", "ivz1", "ivz2"}, "My", "Vz");
    QGroupBox* const z =
        EndForceGroup(bind, QStringLiteral("frmz"), QObject::tr("About the z axis"),
                      {"imz1", "imz2", "ivy1", "ivy2"}, "Mz", "Vy");
    bind.ShowWhen(axial,
                  [](const ProjectState& s) { return Traits(InputsOf(s)).carries.offered.n; });
    bind.ShowWhen(y, [](const ProjectState& s) { return Traits(InputsOf(s)).carries.offered.y; });
    bind.ShowWhen(z, [](const ProjectState& s) { return Traits(InputsOf(s)).carries.offered.z; });
    form->body()->addWidget(axial);
    form->body()->addWidget(y);
    form->body()->addWidget(z);
    form->AddButtons();
    return form;
}

Form* MakeEndStiff(Desk& desk, QWidget* parent)
{
    auto* const form =
        new Form(desk, "endstiff", QStringLiteral("End Supports/Web stiffener"), parent);
    Binder& bind = form->bind();
    QGroupBox* const post = Group(QStringLiteral("frpost"), QObject::tr("End post"));
    QVBoxLayout* const posts = ColumnOf(post);
    posts->addWidget(bind.Option(
        QStringLiteral("oendstiff0"), QStringLiteral("Non-rigid end post"),
        [](const ProjectState& s) { return InputsOf(s).endstiff == 0; },
        [](Session& session) { ChooseEndPost(session, 0); }));
    posts->addWidget(bind.Option(
        QStringLiteral("oendstiff1"), QStringLiteral("Rigid end post"),
        [](const ProjectState& s) { return InputsOf(s).endstiff == 1; },
        [](Session& session) { ChooseEndPost(session, 1); }));
    posts->addWidget(FaintLabel(QStringLiteral("Minimum two webstiffeners at the support")));

    QGroupBox* const web = Group(QStringLiteral("frweb"), QObject::tr("Web stiffeners"));
    QVBoxLayout* const webs = ColumnOf(web);
    QRadioButton* const none = bind.Option(
        QStringLiteral("cwebstiff0"), QObject::tr("No vertical web stiffeners"),
        [](const ProjectState& s) { return InputsOf(s).webstiff == 0; },
        [](Session& session) { ChooseWebStiffeners(session, 0); });
    QRadioButton* const some = bind.Option(
        QStringLiteral("cwebstiff1"), QObject::tr("Vertical web stiffeners"),
        [](const ProjectState& s) { return InputsOf(s).webstiff == 1; },
        [](Session& session) { ChooseWebStiffeners(session, 1); });
    webs->addWidget(none);
    webs->addWidget(some);
    auto* const row = new QWidget;
    auto* const spacing = new QGridLayout(row);
    spacing->setContentsMargins(20, 0, 0, 0);
    BoxEdit* const a = bind.BoxRow(spacing, 0, *FindBox("endstiff", "iweba"));
    spacing->setColumnStretch(3, 1);
    QWidget* const label = row->findChild<QLabel*>(QStringLiteral("iweba_label"));
    label->setObjectName(QStringLiteral("web_a"));
    row->findChild<QLabel*>(QStringLiteral("iweba_unit"))->setObjectName(QStringLiteral("webamm"));
    bind.ShowWhen(row, [](const ProjectState& s) { return InputsOf(s).webstiff == 1; });
    QObject::connect(some, &QRadioButton::clicked, a, [a] { a->setFocus(Qt::OtherFocusReason); });
    webs->addWidget(row);

    QGroupBox* const capacity =
        Group(QStringLiteral("frcapacity"), QStringLiteral("Capacity  (EN 1993-1-5, ch 5.2-5.4)"));
    QGridLayout* const values = GridOf(capacity);
    const auto value = [&](int at, const QString& head, const QString& name,
                           std::string (*text)(const ProjectState&), const QString& tail) {
        values->addWidget(new QLabel(head), at, 0);
        values->addWidget(bind.Value(name, text), at, 1);
        values->addWidget(FaintLabel(tail), at, 2);
    };
    value(0, QStringLiteral("Vpl,z,Rd = "), QStringLiteral("ovrzd"), PlasticShearText,
          QStringLiteral(" kN (Plastic capacity)"));
    value(1, QStringLiteral("Vb,z,Rd = "), QStringLiteral("ovbrzd"), ActualShearText,
          QStringLiteral(" kN (Actual capacity)"));
    values->setColumnStretch(3, 1);
    form->body()->addWidget(post);
    form->body()->addWidget(web);
    form->body()->addWidget(capacity);
    QHBoxLayout* const buttons = form->AddButtons();
    buttons->insertWidget(0, bind.Button(QStringLiteral("cmdinfo"), QObject::tr("&Info"),
                                         [&desk] { desk.open("infoendsupport"); }));
    return form;
}

Form* MakeBucklingY(Desk& desk, QWidget* parent)
{
    return MakeBuckling(desk, parent, Axis::y);
}

Form* MakeBucklingZ(Desk& desk, QWidget* parent)
{
    return MakeBuckling(desk, parent, Axis::z);
}

Form* MakeCheckPoints(Desk& desk, QWidget* parent)
{
    auto* const form =
        new Form(desk, "chpoints", QStringLiteral("Section Control - calculation points"), parent);
    Binder& bind = form->bind();
    QGroupBox* const mode = Group(QStringLiteral("frmode"), QObject::tr("Section control at"));
    QVBoxLayout* const modes = ColumnOf(mode);
    modes->addWidget(bind.Option(
        QStringLiteral("cp_0"), QStringLiteral("11 even distributed points && Max/Min My/Mz "),
        [](const ProjectState& s) { return InputsOf(s).cpmode == 0; },
        [](Session& session) { ChooseCheckMode(session, 0); }));
    modes->addWidget(bind.Option(
        QStringLiteral("cp_1"), QStringLiteral("Characteristic points"),
        [](const ProjectState& s) { return InputsOf(s).cpmode == 1; },
        [](Session& session) { ChooseCheckMode(session, 1); }));
    form->body()->addWidget(mode);

    QGroupBox* const points = Group(QStringLiteral("frpoints"), QObject::tr("Points"));
    QVBoxLayout* const column = ColumnOf(points);
    auto* const counts = new QWidget;
    auto* const count = new QHBoxLayout(counts);
    count->setContentsMargins(0, 0, 0, 0);
    count->addWidget(FaintLabel(QObject::tr("Number:")));
    for (int i = 1; i <= 3; ++i) {
        count->addWidget(bind.Option(
            QStringLiteral("no_cp%1").arg(i), QString::number(i),
            [i](const ProjectState& s) { return InputsOf(s).cpcount == i; },
            [i](Session& session) { ChooseCheckCount(session, i); }));
    }
    count->addStretch(1);
    auto* const modesrow = new QWidget;
    auto* const relative = new QHBoxLayout(modesrow);
    relative->setContentsMargins(0, 0, 0, 0);
    relative->addWidget(FaintLabel(QObject::tr("Positions:")));
    relative->addWidget(bind.Option(
        QStringLiteral("cpabsolute"), QStringLiteral("x (m)"),
        [](const ProjectState& s) { return InputsOf(s).cprelative == 0; },
        [](Session& session) { ChooseCheckRelative(session, false); }));
    relative->addWidget(bind.Option(
        QStringLiteral("cprelative"), QStringLiteral("x/L"),
        [](const ProjectState& s) { return InputsOf(s).cprelative != 0; },
        [](Session& session) { ChooseCheckRelative(session, true); }));
    relative->addStretch(1);
    column->addWidget(counts);
    column->addWidget(modesrow);
    auto* const host = new QWidget;
    auto* const grid = new QGridLayout(host);
    grid->setContentsMargins(0, 0, 0, 0);
    std::array<BoxEdit*, 3> boxes{};
    for (int i = 1; i <= 3; ++i) {
        BoxEdit* const box = bind.Box("icp", i);
        boxes[static_cast<std::size_t>(i - 1)] = box;
        QLabel* const label = Caption(QStringLiteral("CP%1").arg(i), box);
        grid->addWidget(label, i, 0);
        grid->addWidget(box, i, 1);
        for (QWidget* const part : {static_cast<QWidget*>(label), static_cast<QWidget*>(box)}) {
            bind.EnableWhen(part, [i](const ProjectState& s) { return i <= InputsOf(s).cpcount; });
        }
    }
    grid->setColumnStretch(2, 1);
    column->addWidget(host);
    bind.EnableWhen(points, [](const ProjectState& s) { return InputsOf(s).cpmode == 1; });
    form->body()->addWidget(points);
    form->body()->addStretch(1);
    form->AddButtons();
    // Enter: to the next active box, behind the last one to the button, behind the third to the
    // first.
    auto* const ok = form->findChild<QPushButton*>(QStringLiteral("ok"));
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes[i]->next = [boxes, i, ok]() -> QWidget* {
            if (i + 1 == boxes.size()) {
                return boxes.front();
            }
            return boxes[i + 1]->isEnabled() ? static_cast<QWidget*>(boxes[i + 1]) : ok;
        };
    }
    return form;
}

}  // namespace kestrum
