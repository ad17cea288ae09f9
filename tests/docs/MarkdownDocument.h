// SPDX-License-Identifier: GPL-3.0-or-later
// What a test needs of a document: its example files and the tables that tell what is in them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum::testing {

using TableRow = std::vector<std::string>;

/// A table after a comment "<!-- words -->": the words and the rows below the headings.
struct MarkedTable {
    std::vector<std::string> words;
    std::vector<TableRow> rows;
};

struct MarkdownDocument {
    std::map<std::string, std::string> files; // bytes by name
    std::vector<MarkedTable> tables;

    /// The tables whose comment begins with a word.
    [[nodiscard]] std::vector<MarkedTable> marked(std::string_view word) const;
};

/// Reads a document. A block "```text NAME" is a text file; "```hexdump NAME" has lines of a hexadecimal
/// offset and bytes, ends with the file's length, and what it leaves out is zero. Throws std::runtime_error
/// when the document cannot be read or a dump makes no sense.
MarkdownDocument readDocument(const std::filesystem::path& path);

} // namespace kelvrum::testing
