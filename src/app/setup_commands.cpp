#include "app/setup_commands.h"

#include "core/annexes.h"
#include "core/file_io.h"
#include "core/load_combination.h"
#include "core/project_inputs.h"
#include "core/setup_file.h"
#include "core/utf8_path.h"

#include <filesystem>
#include <system_error>

namespace kestrum {

namespace {

i16 Number(int value)
{
    return static_cast<i16>(value);
}

}  // namespace

void ChooseAnnex(Session& session, int annexindex)
{
    ProjectInputs& s = InputsOf(session.edit());
    s.annexindex = Number(annexindex);
    s.annexcode = AnnexCodeFromIndex(annexindex);
    session.SetTitle(session.TitleStem() + ": " + s.filename);
    ApplyAnnexMaterial(s, annexindex);
    ApplyAnnexLoads(s, s, annexindex);
    session.Calculate();
}

bool AnnexParametersOpen(const ProjectState& s)
{
    return InputsOf(s).annexindex == kAnnexUd;
}

ClassFrame ShownClassFrame(const ProjectState& s)
{
    if (InputsOf(s).loadcomb >= kUserFactors || ClassCaption(s).empty()) {
        return ClassFrame::none;
    }
    return InputsOf(s).annexindex == kAnnexNo ? ClassFrame::norway : ClassFrame::three;
}

std::string_view ClassCaption(const ProjectState& s)
{
    return AnnexClassName(InputsOf(s).annexindex);
}

void ChooseClass(Session& session, int safetyclass)
{
    ProjectInputs& s = InputsOf(session.edit());
    s.safetyclass = Number(safetyclass);
    ApplyAnnexLoads(s, s, s.annexindex);
    session.Calculate();
}

void ChoosePsi(Session& session, int which, int index)
{
    ProjectInputs& s = InputsOf(session.edit());
    (which == 1 ? s.psi1index : s.psi2index) = Number(index);
    SetPsi(s);
    ApplyAnnexLoads(s, s, s.annexindex);
    session.Calculate();
}

bool UserFactorsShown(const ProjectState& s)
{
    return InputsOf(s).loadcomb == kUserFactors;
}

bool PsiShown(const ProjectState& s)
{
    return InputsOf(s).loadcomb < kUserFactors;
}

void ChooseMethod(Session& session, int method)
{
    InputsOf(session.edit()).method = Number(method);
    session.Calculate();
}

void TickOption(Session& session, Option option, bool on)
{
    ProjectInputs& s = InputsOf(session.edit());
    i16& field = option == Option::elastic          ? s.checkelastic
                 : option == Option::conservative   ? s.checkconsercontrol
                 : option == Option::flangebuckling ? s.checkflangebuck
                                                    : s.checkwebbuck;
    field = on ? kTrue : kFalse;
    session.Calculate();
}

bool SaveAsDefault(Session& session, const std::string& folder)
{
    const std::string path = folder + "/" + std::string(kSetupFile);
    std::error_code fault;
    std::filesystem::create_directories(Utf8Path(folder), fault);
    ProjectInputs& s = InputsOf(session.edit());
    s.annexcode = AnnexCodeFromIndex(s.annexindex);
    const std::string problem = WriteWholeFile(path, WriteSetup(session.edit()));
    if (!problem.empty()) {
        session.surroundings().Warn(path + ": " + problem);
    }
    return problem.empty();
}

}  // namespace kestrum
