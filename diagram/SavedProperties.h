// The properties of the diagram control that are saved with the form that holds it.
#pragma once

#include "diagram/DiagramState.h"

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
        double standard;
        bool (*accepts)(double);
        double (*get)(const DiagramState&);
        void (*set)(DiagramState&, double);
    };

    /// The saved properties in the order in which they are read and written.
    static std::span<const Entry> entries();

    /// Sets the saved properties to their defaults.
    static void defaults(DiagramState& state);

    /// The text form of a control's saved properties.
    static std::string save(const DiagramState& state);

    /// Sets the saved properties from a text; a key that is absent or whose value its property does not take
    /// gets its default. Unknown keys are ignored; of a repeated key the first number counts.
    static void load(std::string_view text, DiagramState& state);
};

} // namespace kelvrum
