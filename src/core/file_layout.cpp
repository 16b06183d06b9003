#include "core/file_layout.h"

namespace kestrum {

namespace {

bool IsTruth(const Field& field)
{
    return field.values == kTruthValues;
}

// A title takes the rest of its line; other texts are quoted.
bool IsLine(const Field& field)
{
    return field.file[0].part == FilePart::titles;
}

template <class T> T& At(ProjectState& s, const Field& field, int row)
{
    return *static_cast<T*>(field.locate(s, row));
}

}  // namespace

void ReadingFile::Exchange(ProjectState& s, const Field& field, int row)
{
    const std::string name = IndexedName(field, row);
    switch (field.kind) {
    case FieldKind::single:
        return reader_.Take(name, At<float>(s, field, row));
    case FieldKind::real:
        return reader_.Take(name, At<double>(s, field, row));
    case FieldKind::integer:
        return IsTruth(field) ? reader_.TakeTruth(name, At<i16>(s, field, row))
                              : reader_.Take(name, At<i16>(s, field, row));
    case FieldKind::text:
        return IsLine(field) ? reader_.TakeLine(name, At<std::string>(s, field, row))
                             : reader_.TakeText(name, At<std::string>(s, field, row));
    default:
        return;  // no file keeps a result
    }
}

void WritingFile::Exchange(ProjectState& s, const Field& field, int row)
{
    switch (field.kind) {
    case FieldKind::single:
        return writer_.Put(At<float>(s, field, row));
    case FieldKind::real:
        return writer_.Put(At<double>(s, field, row));
    case FieldKind::integer:
        return IsTruth(field) ? writer_.PutTruth(At<i16>(s, field, row))
                              : writer_.Put(At<i16>(s, field, row));
    case FieldKind::text:
        return IsLine(field) ? writer_.PutLine(At<std::string>(s, field, row))
                             : writer_.PutText(At<std::string>(s, field, row));
    default:
        return;
    }
}

}  // namespace kestrum
