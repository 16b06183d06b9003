#include "cli/renderer.h"

#include "cli/context.h"
#include "core/file_io.h"
#include "core/program_path.h"
#include "core/utf8_path.h"
#include "render/module.h"
#include "report/svg_writer.h"

#ifdef _WIN32
#ifndef NOMINMAX  // the standard library of MinGW defines it
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include <algorithm>
#include <filesystem>

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;

using RenderFunction = decltype(&KestrumRender);

constexpr const char* kFunction = "KestrumRender";

#ifdef _WIN32

constexpr const char* kModule = "kestrum-render.dll";

RenderFunction Load(const fs::path& module, std::string& problem)
{
    const HMODULE handle = LoadLibraryW(module.c_str());
    if (handle == nullptr) {
        problem = "Windows error " + std::to_string(GetLastError());
        return nullptr;
    }
    const auto function = reinterpret_cast<RenderFunction>(
        reinterpret_cast<void*>(GetProcAddress(handle, kFunction)));
    problem = function == nullptr ? "it is of another version" : "";
    return function;
}

#else

constexpr const char* kModule = "kestrum-render.so";

// The module stays loaded to the end of the program.
RenderFunction Load(const fs::path& module, std::string& problem)
{
    void* const handle = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        problem = dlerror();
        return nullptr;
    }
    const auto function = reinterpret_cast<RenderFunction>(dlsym(handle, kFunction));
    problem = function == nullptr ? "it is of another version" : "";
    return function;
}

#endif

// Beside the program, then in the library folders of its prefix (lib, lib/x86_64-linux-gnu). Never
// from where the user happens to be: all are absolute.
std::vector<fs::path> ModuleFolders()
{
    const fs::path program = ProgramPath().parent_path();
    if (program.empty()) {
        throw BadInput("PDF and PNG need the renderer; this system does not say where the program "
                       "lies; SVG needs nothing more");
    }
    const fs::path libraries = program.parent_path() / "lib";
    std::vector<fs::path> folders{program, libraries / "kestrum-ec3"};
    std::error_code fault;
    for (fs::directory_iterator at(libraries, fault), end; !fault && at != end;
         at.increment(fault)) {
        const fs::path folder = at->path() / "kestrum-ec3";
        std::error_code ignored;
        if (fs::is_directory(folder, ignored)) {
            folders.push_back(folder);
        }
    }
    return folders;
}

RenderFunction Renderer()
{
    const std::vector<fs::path> folders = ModuleFolders();
    for (const fs::path& folder : folders) {
        std::error_code ignored;
        const fs::path module = folder / kModule;
        if (!fs::is_regular_file(module, ignored)) {
            continue;
        }
        std::string problem;
        const RenderFunction function = Load(module, problem);
        if (function == nullptr) {
            throw BadInput("PDF and PNG need the renderer with Qt 6 Gui; " + module.string() +
                           " cannot be loaded: " + problem);
        }
        return function;
    }
    throw BadInput("PDF and PNG need the renderer " + std::string(kModule) +
                   ", which is neither in " + folders[0].string() + " nor in " +
                   folders[1].string() + "; SVG needs nothing more");
}

}  // namespace

void CheckDrawingName(const std::string& path)
{
    const std::string ending = EndingOf(path);
    if (ending != ".svg" && ending != ".png" && ending != ".pdf") {
        throw BadInput(path + ": the name has to end in .svg, .png or .pdf");
    }
}

void WriteDrawings(const std::vector<Drawing>& pages, const DrawingScale& scale,
                   const std::string& path, const PdfExtras* extras)
{
    CheckDrawingName(path);
    const std::string ending = EndingOf(path);
    if (ending != ".pdf" && pages.size() > 1) {
        WriteDrawings({Stacked(pages)}, scale, path, extras);
        return;
    }
    if (ending == ".svg") {
        const std::string fault = WriteWholeFile(path, WriteSvg(pages.front(), scale.svg_pixels));
        if (!fault.empty()) {
            throw BadInput(path + ": " + fault);
        }
        return;
    }
    const RenderJob job{&pages, &path, ending == ".pdf", scale.mm, scale.png_pixels, extras};
    const std::string fault = Renderer()(&job);
    if (!fault.empty()) {
        throw BadInput(fault);
    }
}

}  // namespace kestrum::cli
