#pragma once

// Parts of the program that are loaded only when they are asked for, so that all other commands
// start without their libraries: Qt for PDF and PNG, libxlsxwriter for workbooks.

#include <string>

namespace kestrum::cli {

struct Module {
    const char* name;     // of its file, without the ending
    const char* needed;   // "PDF and PNG need the renderer"
    const char* instead;  // what needs nothing more
};

// A function of the module, which stays loaded to the end of the program. The module is beside the
// program or in the package's library folder. Throws BadInput where it is missing, cannot be loaded
// or has no such function.
void* FunctionOf(const Module& module, const char* function);

}  // namespace kestrum::cli
