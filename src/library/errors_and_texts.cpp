#include "core/version.h"
#include "library/handles.h"

namespace {

const char* TextOr(const std::string* text)
{
    return text == nullptr ? "" : text->c_str();
}

}  // namespace

const char* kestrum_version(void)
{
    return kestrum::kVersion.data();
}

// Without memory for its words an error still says what it is.
const char* kestrum_error_text(const kestrum_error* error)
{
    if (error == nullptr) {
        return "";
    }
    if (!error->text.empty()) {
        return error->text.c_str();
    }
    return error->code == KESTRUM_NO_MEMORY ? "out of memory" : "internal fault";
}

const char* kestrum_error_field(const kestrum_error* error)
{
    return TextOr(error == nullptr ? nullptr : &error->field);
}

const char* kestrum_error_nearest(const kestrum_error* error)
{
    return TextOr(error == nullptr ? nullptr : &error->nearest);
}

int kestrum_error_line(const kestrum_error* error)
{
    return error == nullptr ? 0 : error->line;
}

void kestrum_error_free(kestrum_error* error)
{
    delete error;
}

const char* kestrum_text_data(const kestrum_text* text)
{
    return TextOr(text == nullptr ? nullptr : &text->text);
}

size_t kestrum_text_size(const kestrum_text* text)
{
    return text == nullptr ? 0 : text->text.size();
}

void kestrum_text_free(kestrum_text* text)
{
    delete text;
}
