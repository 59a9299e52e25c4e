// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

#include "tools/command_line.h"

#include <cstdio>
#include <string_view>

bool answersHelpOrVersion(int argc, char** argv, const char* program, const char* usage) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view option = argv[i];
        if (option == "--help") std::fputs(usage, stdout);
        if (option == "--version") std::printf("%s %s\n", program, VELARDA_VERSION);
        if (option == "--help" || option == "--version") return true;
    }
    return false;
}

int misused(const char* usage) {
    const std::string_view line(usage, std::string_view(usage).find('\n'));
    std::fprintf(stderr, "usage: %.*s\n", static_cast<int>(line.size()), line.data());
    return 2;
}
