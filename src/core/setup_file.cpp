#include "core/setup_file.h"

#include "core/file_layout.h"
#include "core/held_state.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "core/project_file.h"
#include "core/project_inputs.h"

#include <algorithm>

namespace kestrum {

namespace {

template <class File> void Setup(File& file, ProjectState& s)
{
    i16 version = kFileVersion;  // never looked at
    file.Value("version", version);
    for (const FileField& at : FieldsOfPart(FilePart::settings)) {
        file.Exchange(s, *at.field);
    }
}

}  // namespace

std::optional<FileFault> ReadSetup(ProjectState& s, std::string_view bytes)
{
    ReadingFile file(bytes);
    Setup(file, s);
    if (!file.ok()) {
        return file.fault();
    }
    if (!bytes.ends_with('\n') && !bytes.ends_with('\r')) {
        const auto line = 1 + std::count(bytes.begin(), bytes.end(), '\n');
        return FileFault{static_cast<int>(line), "expected a line end after the last value"};
    }
    return std::nullopt;
}

std::string WriteSetup(ProjectState& s)
{
    WritingFile file;
    Setup(file, s);
    return file.Finish();
}

std::string DeliveredSetup()
{
    HeldState state;
    ProjectInputs& s = InputsOf(state);
    s.annexcode = "EU";
    s.gammam0 = 1, s.gammam1 = 1, s.neta = 1.2F, s.method = Method::annex_a;
    s.lamdalt0 = 0.4F, s.beta = 0.75, s.lamdalt0w = 0.4F, s.betaw = 0.75;
    s.fykindex = 5, s.fyk = 355, s.e = 210000, s.uflimit = 0;
    s.loadcomb = kUserFactors, s.deflimity = 300, s.deflimitz = 300;
    s.safetyclass = 3, s.psi1index = 6, s.psi2index = 6;
    s.lfulsg = 1, s.lfulsq1 = 1.3F, s.lfulsq2 = 0.7F;
    s.lfslsg = 1, s.lfslsq1 = 1, s.lfslsq2 = 1;
    return WriteSetup(state);
}

}  // namespace kestrum
