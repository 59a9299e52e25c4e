// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT
//
// The loader of Linux and of systems like it.

#include "platform/sound/shared_library.h"

#include <dlfcn.h>

namespace {

/// The bare name is there only where programs are built, and may belong to another version.
void* load(const std::string& name) {
    for (const char* ending : {".so.0", ".so"})
        if (void* handle = dlopen(("lib" + name + ending).c_str(), RTLD_LAZY)) return handle;
    return nullptr;
}

}  // namespace

SharedLibrary::SharedLibrary(std::initializer_list<std::string> names) {
    for (const std::string& name : names) {
        handle_ = load(name);
        if (handle_) return;
    }
}

void* SharedLibrary::address(const char* name) const {
    return handle_ ? dlsym(handle_, name) : nullptr;
}
