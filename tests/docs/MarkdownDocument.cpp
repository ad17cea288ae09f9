// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/docs/MarkdownDocument.h"

#include "util/Text.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace kelvrum::testing {

namespace {

std::vector<std::string> wordsOf(std::string_view text) {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

std::size_t hexNumber(const std::string& digits) {
    std::size_t end = 0;
    const std::size_t value = std::stoul(digits, &end, 16);
    return end == digits.size() ? value : throw std::runtime_error("no hexadecimal number: " + digits);
}

/// Adds a line of a dump to a file's bytes; each line begins where the one before ended, or after it.
void addDumpLine(std::string_view line, std::string& bytes) {
    const std::vector<std::string> words = wordsOf(line);
    if (words.empty() || hexNumber(words.front()) < bytes.size()) {
        throw std::runtime_error("a dump goes back: " + std::string(line));
    }
    bytes.resize(hexNumber(words.front()));
    for (std::size_t i = 1; i < words.size(); ++i) {
        bytes += static_cast<char>(hexNumber(words[i]));
    }
}

TableRow cellsOf(std::string_view line) {
    TableRow cells;
    line.remove_prefix(1);
    for (const std::string_view cell : split(line.substr(0, line.rfind('|')), '|')) {
        cells.emplace_back(trimBlanks(cell));
    }
    return cells;
}

class DocumentReader {
  public:
    explicit DocumentReader(MarkdownDocument& document)
        : document_(document) {}

    void read(std::string_view line) {
        if (line.starts_with("```")) {
            readFence(line.substr(3));
        } else if (kind_ == "hexdump") {
            addDumpLine(line, document_.files[name_]);
        } else if (kind_ == "text") {
            document_.files[name_].append(line).append("\n");
        } else if (line.starts_with("<!-- ")) {
            document_.tables.push_back({wordsOf(line.substr(5, line.find(" -->") - 5)), {}});
            linesOfTable_ = 0;
            waiting_ = true;
        } else if (line.starts_with('|') && waiting_) {
            ++linesOfTable_;
            if (linesOfTable_ > 2) { // after the headings and the rule below them
                document_.tables.back().rows.push_back(cellsOf(line));
            }
        } else if (linesOfTable_ > 0) {
            waiting_ = false;
        }
    }

  private:
    void readFence(std::string_view rest) {
        const std::vector<std::string> words = wordsOf(rest);
        kind_ = words.size() == 2 ? words[0] : "";
        name_ = words.size() == 2 ? words[1] : "";
    }

    MarkdownDocument& document_;
    std::string kind_; // of the block that is open; empty outside of all
    std::string name_;
    int linesOfTable_ = 0;
    bool waiting_ = false; // for the rows of the table that was marked last
};

} // namespace

std::vector<MarkedTable> MarkdownDocument::marked(std::string_view word) const {
    std::vector<MarkedTable> found;
    std::copy_if(tables.begin(), tables.end(), std::back_inserter(found),
                 [word](const MarkedTable& table) { return !table.words.empty() && table.words[0] == word; });
    return found;
}

MarkdownDocument readDocument(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot read " + path.string());
    }
    MarkdownDocument document;
    DocumentReader reader(document);
    for (std::string line; std::getline(stream, line);) {
        reader.read(line);
    }
    return document;
}

} // namespace kelvrum::testing
