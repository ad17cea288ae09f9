// SPDX-License-Identifier: GPL-3.0-or-later
// The properties of the diagram control that are saved with the form that holds it.
#pragma once

#include "diagram/DiagramProperties.h"

#include <span>
#include <string>
#include <string_view>

namespace kelvrum {

/// 18 keys in a fixed order, each with a default. The text form has one line "Key=Value" for each; numbers
/// are written so that they read back exactly, the boolean as 0 or 1, AngelOffset in radians.
class SavedProperties {
  public:
    /// One saved property. Every value travels as a double: 32-bit numbers and colours fit exactly.
    struct Entry {
        std::string_view key;
        bool (*accepts)(double);
        double (*get)(const DiagramProperties&);
        void (*set)(DiagramProperties&, double);

        /// Its default, that of DiagramProperties.
        [[nodiscard]] double standard() const;
    };

    /// The saved properties in the order in which they are read and written.
    static std::span<const Entry> entries();

    /// The text form of the saved properties.
    static std::string save(const DiagramProperties& properties);

    /// Sets the saved properties from a text; a key that is absent or whose value its property does not take
    /// gets its default. Unknown keys are ignored; of a repeated key the first number counts.
    static void load(std::string_view text, DiagramProperties& properties);
};

} // namespace kelvrum
