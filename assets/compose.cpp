// Velarda, a card game of the Scopa family.
// SPDX-License-Identifier: MIT

// velarda-compose PARTS SOURCE OUTPUT
//
// Puts one picture together from its parts. SOURCE is an SVG file in which elements of our own
// may stand; OUTPUT is SVG Tiny, ready to be set in a box.
//
//   <include href="suits/coppa.svg" transform="..."/>
//       becomes a group with everything inside the <svg> element of that file, includes and all;
//       href is relative to the folder PARTS.
//   <lettering text="RE DI SPADE" x="50" y="96" height="6" fill="#222222"/>
//       becomes the drawn letters of PARTS/alphabet, set in one line that is centred on x and
//       stands on the base line y; height is that of the capitals. A letter is a file whose
//       viewBox is as wide as its advance and reaches from -100 (top of the capitals) to 0.
//
// What stands where in a box of another shape is settled when the box is known: see
// platform/qt/composition.h. Of the elements told of there the drawings are put in here.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr int deepestInclude = 12;

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path.string());
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

/// The value of an attribute inside one tag; the fallback where the tag has none.
std::string attribute(const std::string& tag, const std::string& name,
                      const std::string& fallback = {}) {
    const auto start = tag.find(' ' + name + "=\"");
    if (start == std::string::npos) return fallback;
    const auto from = start + name.size() + 3;
    return tag.substr(from, tag.find('"', from) - from);
}

std::string openingTag(const std::string& text) {
    const auto start = text.find("<svg");
    if (start == std::string::npos) throw std::runtime_error("no <svg> element");
    return text.substr(start, text.find('>', start) + 1 - start);
}

/// What stands between <svg ...> and </svg>.
std::string inside(const std::string& text) {
    const auto tag = openingTag(text);
    const auto from = text.find(tag) + tag.size();
    const auto to = text.rfind("</svg>");
    if (to == std::string::npos || to < from) throw std::runtime_error("no closing </svg>");
    return text.substr(from, to - from);
}

/// The advance of a glyph: the width of its viewBox, whose height is 100 from base line to top.
double advance(const std::string& glyph) {
    std::istringstream box(attribute(openingTag(glyph), "viewBox"));
    double x = 0, y = 0, width = 0;
    if (!(box >> x >> y >> width)) throw std::runtime_error("a letter without a viewBox");
    return width;
}

class Composer {
public:
    explicit Composer(fs::path root) : root_(std::move(root)) {}

    std::string expand(const std::string& text, int depth = 0) {
        if (depth > deepestInclude) throw std::runtime_error("includes go round in a circle");
        std::string out;
        std::size_t at = 0;
        while (true) {
            const auto next = nextOwnElement(text, at);
            out += text.substr(at, next == std::string::npos ? next : next - at);
            if (next == std::string::npos) return out;
            const bool comment = text.compare(next, 4, "<!--") == 0;
            const std::string close = comment ? "-->" : "/>";
            const auto end = text.find(close, next);
            if (end == std::string::npos) throw std::runtime_error("an element without its end");
            at = end + close.size();
            if (!comment) out += replaced(text.substr(next, at - next), depth);
        }
    }

private:
    static std::size_t nextOwnElement(const std::string& text, std::size_t at) {
        auto first = std::string::npos;
        for (const char* name :
             {"<!--", "<include ", "<lettering ", "<signs ", "<crossed ", "<ornament ", "<tiles "})
            first = std::min(first, text.find(name, at));
        return first;
    }

    std::string replaced(const std::string& tag, int depth) {
        if (tag.starts_with("<include ")) return included(tag, depth);
        if (tag.starts_with("<lettering ")) return lettered(tag);
        return named(tag, depth);
    }

    /// An element that is set when the box is known: its drawings are written once, with their
    /// middle at 0,0, and it is left with their ids and sizes.
    std::string named(std::string tag, int depth) {
        std::string drawings;
        for (const std::string name : {"href", "other", "middle", "upright", "between"}) {
            const auto file = attribute(tag, name);
            if (file.empty()) continue;
            const auto id = fs::path(file).stem().string();
            const auto text = readFile(root_ / file);
            std::istringstream box(attribute(openingTag(text), "viewBox"));
            double x = 0, y = 0, width = 0, height = 0;
            if (!(box >> x >> y >> width >> height))
                throw std::runtime_error(file + " has no viewBox");
            std::ostringstream size, middle;
            size << ' ' << name << "-size=\"" << width << ' ' << height << "\"/>";
            middle << -x - width / 2 << ' ' << -y - height / 2;
            tag.replace(tag.find(file), file.size(), '#' + id);
            tag.replace(tag.find("/>"), 2, size.str());
            if (defined_.insert(id).second)
                drawings += "<defs><g id=\"" + id + "\"><g transform=\"translate(" + middle.str() +
                            ")\">" + expand(inside(text), depth + 1) + "</g></g></defs>";
        }
        return drawings + tag;
    }

    std::string included(const std::string& tag, int depth) {
        const auto part = expand(inside(readFile(root_ / attribute(tag, "href"))), depth + 1);
        const auto transform = attribute(tag, "transform");
        return (transform.empty() ? "<g>" : "<g transform=\"" + transform + "\">") + part + "</g>";
    }

    std::string lettered(const std::string& tag) const {
        const auto text = attribute(tag, "text");
        const auto scale = std::stod(attribute(tag, "height")) / 100;
        double width = 0;
        for (const char letter : text) width += advance(glyph(letter));
        std::ostringstream out;
        out << "<g fill=\"" << attribute(tag, "fill", "#000000") << "\" transform=\"translate("
            << std::stod(attribute(tag, "x")) - width * scale / 2 << ' ' << attribute(tag, "y")
            << ") scale(" << scale << ")\">";
        double x = 0;
        for (const char letter : text) {
            out << "<g transform=\"translate(" << x << " 0)\">" << inside(glyph(letter)) << "</g>";
            x += advance(glyph(letter));
        }
        return out.str() + "</g>";
    }

    std::string glyph(char letter) const {
        const std::string name = letter == ' ' ? "space" : std::string(1, letter);
        return readFile(root_ / "alphabet" / (name + ".svg"));
    }

    fs::path root_;
    std::set<std::string> defined_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: velarda-compose PARTS-FOLDER SOURCE OUTPUT\n";
        return 2;
    }
    try {
        const auto picture = Composer(argv[1]).expand(readFile(argv[2]));
        std::ofstream out(argv[3], std::ios::binary);
        out << picture;
        if (!out.flush()) throw std::runtime_error("cannot write the output");
    } catch (const std::exception& fault) {
        std::cerr << "velarda-compose: " << argv[2] << ": " << fault.what() << '\n';
        return 1;
    }
}
