#pragma once

// What the layouts of project and setup file share: one description that reader and writer walk.
// `File` has Value, Truth, Text and Line, each taking the canonical name and the field.

#include "core/file_notation.h"
#include "core/state/settings.h"

#include <string>
#include <string_view>

namespace kestrum {

class ReadingFile {
public:
    explicit ReadingFile(std::string_view bytes) : reader_(bytes) {}
    static constexpr bool kReads = true;

    template <class T> void Value(std::string_view name, T& value) { reader_.Take(name, value); }
    void Truth(std::string_view name, i16& value) { reader_.TakeTruth(name, value); }
    void Text(std::string_view name, std::string& value) { reader_.TakeText(name, value); }
    void Line(std::string_view name, std::string& value) { reader_.TakeLine(name, value); }
    bool ok() const { return reader_.ok(); }
    const FileFault& fault() const { return reader_.fault(); }

private:
    ValueReader reader_;
};

class WritingFile {
public:
    static constexpr bool kReads = false;

    template <class T> void Value(std::string_view, T& value) { writer_.Put(value); }
    void Truth(std::string_view, i16& value) { writer_.PutTruth(value); }
    void Text(std::string_view, std::string& value) { writer_.PutText(value); }
    void Line(std::string_view, std::string& value) { writer_.PutLine(value); }
    bool ok() const { return true; }
    std::string Finish() { return writer_.Finish(); }

private:
    ValueWriter writer_;
};

// The load factors of the user, the last settings of both files.
template <class File> void UserFactors(File& file, Settings& s)
{
    file.Value("lfulsg", s.lfulsg);
    file.Value("lfulsq1", s.lfulsq1);
    file.Value("lfulsq2", s.lfulsq2);
    file.Value("lfslsg", s.lfslsg);
    file.Value("lfslsq1", s.lfslsq1);
    file.Value("lfslsq2", s.lfslsq2);
}

// Material and options of the section control, in the order of both files.
template <class File> void MaterialAndOptions(File& file, Settings& s)
{
    file.Value("fykindex", s.fykindex);
    file.Value("fyk", s.fyk);
    file.Value("e", s.e);
    file.Value("uflimit", s.uflimit);
    file.Truth("checkelastic", s.checkelastic);
    file.Truth("checkconsercontrol", s.checkconsercontrol);
    file.Truth("checkflangebuck", s.checkflangebuck);
    file.Truth("checkwebbuck", s.checkwebbuck);
}

}  // namespace kestrum
