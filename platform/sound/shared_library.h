// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>
#include <string>

/// A library of the system that is loaded while the program runs, and stays to its end.
class SharedLibrary {
public:
    /// Loads the first of these that there is: names without what the system puts before and
    /// after, as "SDL2". It may take long.
    explicit SharedLibrary(std::initializer_list<std::string> names);

    bool isLoaded() const { return handle_ != nullptr; }

    /// A function of the library, or, on Linux, of those that it is linked with; null when there
    /// is none.
    template <class Function>
    Function find(const char* name) const {
        return reinterpret_cast<Function>(address(name));
    }

private:
    void* address(const char* name) const;

    void* handle_ = nullptr;
};
