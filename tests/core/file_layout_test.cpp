#include "core/file_layout.h"

#include "core/field_table.h"
#include "core/project_state.h"

#include <gtest/gtest.h>

#include <memory>

namespace kestrum {
namespace {

// Files keep inputs alone. A result among the fields of a file would neither be written nor take a
// line of it.
TEST(FileLayout, AResultIsNeitherWrittenNorRead)
{
    const auto s = std::make_unique<ProjectState>();
    int results = 0;
    for (const Field& field : AllFields()) {
        if (field.kind != FieldKind::literal && field.kind != FieldKind::truth) {
            continue;
        }
        ++results;
        WritingFile written;
        written.Exchange(*s, field, field.first);
        EXPECT_EQ(written.Finish(), "") << field.name;
        ReadingFile read("7\r\n");
        read.Exchange(*s, field, field.first);
        i16 next = 0;
        read.Value("next", next);
        EXPECT_TRUE(read.ok()) << field.name;
        EXPECT_EQ(next, 7) << field.name;
        if (field.kind == FieldKind::truth) {
            EXPECT_EQ(TextOf(*s, field), "") << field.name;
        }
    }
    EXPECT_GT(results, 0);
}

TEST(FileLayout, ANumberHasNoText)
{
    const auto s = std::make_unique<ProjectState>();
    EXPECT_EQ(TextOf(*s, *FindField("l")), "");
}

}  // namespace
}  // namespace kestrum
