#include "cli/renderer.h"

#include "cli/context.h"
#include "cli/modules.h"
#include "core/file_io.h"
#include "core/utf8_path.h"
#include "render/module.h"
#include "report/svg_writer.h"

namespace kestrum::cli {

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
    constexpr Module kRenderer{"kestrum-render", "PDF and PNG need the renderer",
                               "SVG needs nothing more"};
    const auto render =
        reinterpret_cast<decltype(&KestrumRender)>(FunctionOf(kRenderer, "KestrumRender"));
    const std::string fault = render(&job);
    if (!fault.empty()) {
        throw BadInput(fault);
    }
}

}  // namespace kestrum::cli
