#include "ui/combination_widgets.h"

#include "app/member_commands.h"
#include "app/setup_commands.h"
#include "core/load_combination.h"
#include "core/project_inputs.h"
#include "ui/form.h"
#include "ui/lists.h"
#include "ui/text.h"

#include <QGroupBox>
#include <QHBoxLayout>

namespace kestrum {

QComboBox* CombinationList(Binder& bind)
{
    QComboBox* const list = bind.List(
        QStringLiteral("CboLoadComb"), CombinationNames(),
        [](const ProjectState& s) { return InputsOf(s).loadcomb; }, ChooseLoadCombination);
    list->setAccessibleName(QObject::tr("Load combination"));
    list->setToolTip(QObject::tr("Load combination\nEN 1990, 6.4.3.2"));
    return list;
}

QWidget* PsiFrame(Binder& bind, Desk& desk, const QString& infobutton)
{
    QGroupBox* const group = Group(QStringLiteral("frPsi"), QStringLiteral("ψ"));
    QHBoxLayout* const row = RowOf(group);
    const auto list = [&](int which, const QString& name, const QString& label,
                          i16 ProjectInputs::*field) {
        QComboBox* const psi = bind.List(
            name, PsiNames(bind.session().decimalcomma()),
            [field](const ProjectState& s) { return InputsOf(s).*field; },
            [which](Session& session, int index) { ChoosePsi(session, which, index); });
        psi->setToolTip(QObject::tr("Combination value\nEN 1990, A1.2.2"));
        psi->setAccessibleName(QObject::tr("Combination value of ") + label.left(2));
        row->addWidget(Caption(label, psi));
        row->addWidget(psi);
    };
    list(1, QStringLiteral("Cbo_Q1_Psi1"), QStringLiteral("Q1 ="), &ProjectInputs::psi1index);
    list(2, QStringLiteral("Cbo_Q2_Psi2"), QStringLiteral("Q2 ="), &ProjectInputs::psi2index);
    row->addStretch(1);
    row->addWidget(
        bind.Button(infobutton, QObject::tr("&Info"), [&desk] { desk.open("InfoPsi"); }));
    bind.ShowWhen(group, PsiShown);
    return group;
}

QLabel* CombinationTexts(Binder& bind)
{
    QLabel* const texts = bind.Text(QStringLiteral("lstCombination"), [](const ProjectState& s) {
        std::string lines;
        for (const std::string& line : ShowCombination(s)) {
            lines += (lines.empty() ? "" : "\n") + line;
        }
        return lines;
    });
    texts->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return texts;
}

}  // namespace kestrum
