#include "core/setup_file.h"

#include "core/file_layout.h"
#include "core/project_file.h"

namespace kestrum {

namespace {

template <class File> void Setup(File& file, ProjectState& s)
{
    i16 version = kFileVersion;  // never looked at
    file.Value("version", version);
    file.Text("annexcode", s.annexcode);
    file.Value("gammam0", s.gammam0);
    file.Value("gammam1", s.gammam1);
    file.Value("neta", s.neta);
    file.Value("method", s.method);
    file.Value("lamdalt0", s.lamdalt0);
    file.Value("beta", s.beta);
    file.Value("lamdalt0w", s.lamdalt0w);
    file.Value("betaw", s.betaw);
    MaterialAndOptions(file, s);
    file.Value("loadcomb", s.loadcomb);
    file.Value("deflimity", s.deflimity);
    file.Value("deflimitz", s.deflimitz);
    file.Value("safetyclass", s.safetyclass);
    file.Value("psi1index", s.psi1index);
    file.Value("psi2index", s.psi2index);
    UserFactors(file, s);
}

}  // namespace

std::optional<FileFault> ReadSetup(ProjectState& s, std::string_view bytes)
{
    ReadingFile file(bytes);
    Setup(file, s);
    return file.ok() ? std::nullopt : std::optional(file.fault());
}

std::string WriteSetup(ProjectState& s)
{
    WritingFile file;
    Setup(file, s);
    return file.Finish();
}

}  // namespace kestrum
