#pragma once

// The notation of project and setup files: one value a line, lines ended by CR LF, the point as
// decimal separator, texts in double quotes without escapes, truth values as #TRUE# and #FALSE#. A
// reader also takes LF alone, commas between values, blanks before a value, and -1, 0, 1 for truth
// values.

#include "core/state/types.h"

#include "core/utf8_text.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrum {

// Where and why a file could not be read on.
struct FileFault {
    int line = 0;
    std::string what;  // `field l: expected a number, found "abc"`
};

// "FILE:LINE: what"
std::string FaultText(const std::string& file, const FileFault& fault);

// Takes the values of a file one by one. After a fault it takes nothing more and leaves every field
// alone.
class ValueReader {
public:
    explicit ValueReader(std::string_view bytes) : rest_(bytes) {}

    void Take(std::string_view name, i16& value);
    void Take(std::string_view name, float& value);
    void Take(std::string_view name, double& value);
    void TakeTruth(std::string_view name, i16& value);
    void TakeText(std::string_view name, std::string& value);  // in quotes
    void TakeLine(std::string_view name, std::string& value);  // to the line end

    bool ok() const { return fault_.line == 0; }
    const FileFault& fault() const { return fault_; }

private:
    struct Token {
        std::string_view text;
        int line;
    };
    bool NextToken(std::string_view name, std::string_view expected, Token& token);
    bool TakeNumber(std::string_view name, double& value);
    std::string_view NextLine();
    void Fail(std::string_view name, std::string_view expected, const Token& token);

    std::string_view rest_;
    int line_ = 1;
    FileFault fault_;
};

class ValueWriter {
public:
    void Put(i16 value);
    void Put(float value);
    void Put(double value);
    void PutTruth(i16 value);
    void PutText(std::string_view value);
    void PutLine(std::string_view value);

    std::string Finish() { return std::move(bytes_); }

private:
    void EndLine() { bytes_.append("\r\n"); }
    std::string bytes_;
};

// A number as files hold it: shortest decimal that reads back, leading zero dropped, an exponent
// from 1E+07 (double: 1E+15) and below 1E-04.
std::string FileNumber(float value);
std::string FileNumber(double value);

}  // namespace kestrum
