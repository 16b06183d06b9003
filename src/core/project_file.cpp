#include "core/project_file.h"

#include "core/annexes.h"
#include "core/file_layout.h"
#include "core/load_combination.h"
#include "core/project_state.h"

#include <span>

namespace kestrum {

namespace {

// Arrays of a part that follow one another stand row by row.
template <class File> void RowByRow(File& file, ProjectState& s, std::span<const FileField> arrays)
{
    for (int row = 1; row <= arrays.front().field->last; ++row) {
        for (const FileField& at : arrays) {
            file.Exchange(s, *at.field, row);
        }
    }
}

// A field that stands alone, as the version of the file has it.
template <class File> void Single(File& file, ProjectState& s, const Field& field, i16 version)
{
    const bool held = field.since == 0 || version >= field.since;
    if (held) {
        file.Exchange(s, field);
    }
    if (File::kReads && file.ok() && field.older != nullptr && (!held || version < field.changed)) {
        field.older(s);
    }
}

template <class File> void Part(File& file, ProjectState& s, FilePart part, i16 version)
{
    const std::span<const FileField> fields = FieldsOfPart(part);
    for (std::size_t i = 0; i < fields.size();) {
        const Field& field = *fields[i].field;
        std::size_t next = i + 1;
        if (field.shape == FieldShape::array) {
            while (next < fields.size() && fields[next].field->shape == FieldShape::array) {
                ++next;
            }
            RowByRow(file, s, fields.subspan(i, next - i));
        } else if (field.role == FieldRole::input) {  // not what the setup alone keeps
            Single(file, s, field, version);
        }
        i = next;
    }
}

// A family without an entry has an empty block, and a series without a table no row.
template <class File> void Section(File& file, ProjectState& s, i16 version)
{
    static const Field* const kOwn = FindField("p24.hsqc");
    static const Field* const kWritten = FindField("p25.istc");  // in its place: part of the format
    const std::span<const FileField> block =
        file.ok() ? BlockOfFamily(s.family) : std::span<const FileField>{};
    for (const FileField& at : block) {
        const bool other = !File::kReads && at.field == kOwn;
        if (at.place.choice == 0 || at.place.choice == NumberOf(s, *block.front().field)) {
            Single(file, s, other ? *kWritten : *at.field, version);
        }
    }
}

template <class File> void Project(File& file, ProjectState& s)
{
    i16 version = kFileVersion;
    file.Value("version", version);
    for (const FilePart part : {FilePart::titles, FilePart::settings, FilePart::member}) {
        Part(file, s, part, version);
    }
    if (file.ok() && s.loadmode == 0) {
        Part(file, s, FilePart::endforces, version);
    } else if (file.ok() && s.loadmode == 1) {
        for (const FilePart part :
             {FilePart::axial, FilePart::uniform, FilePart::trapezoidal, FilePart::point}) {
            Part(file, s, part, version);
        }
    }
    Part(file, s, FilePart::family, version);
    Section(file, s, version);
    Part(file, s, FilePart::tail, version);
}

}  // namespace

std::optional<FileFault> ReadProject(ProjectState& s, std::string_view bytes)
{
    ReadingFile file(bytes);
    s.dropped = {};  // what was emptied belongs to the project before
    Project(file, s);
    if (!file.ok()) {
        return file.fault();
    }
    SetPsi(s);
    s.annexindex = AnnexIndexFromCode(s.annexcode);
    ApplyAnnexMaterial(s, s.annexindex);
    ApplyAnnexLoads(s, s, s.annexindex);
    return std::nullopt;
}

std::string WriteProject(ProjectState& s)
{
    s.annexcode = AnnexCodeFromIndex(s.annexindex);
    WritingFile file;
    Project(file, s);
    return file.Finish();
}

}  // namespace kestrum
