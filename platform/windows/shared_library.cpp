// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "platform/sound/shared_library.h"

#include <windows.h>

namespace {

/// From the program's own folder, and what it is linked with from the system's: never from the
/// present folder, where anybody may have put something. No message comes up when it is damaged.
HMODULE load(const std::string& name) {
    const std::wstring file = std::wstring(name.begin(), name.end()) + L".dll";
    DWORD usual = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &usual);
    constexpr DWORD folders = LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;
    const HMODULE library = LoadLibraryExW(file.c_str(), nullptr, folders);
    SetThreadErrorMode(usual, nullptr);
    return library;
}

}  // namespace

SharedLibrary::SharedLibrary(std::initializer_list<std::string> names) {
    for (const std::string& name : names) {
        handle_ = load(name);
        if (handle_) return;
    }
}

void* SharedLibrary::address(const char* name) const {
    if (!handle_) return nullptr;
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}
