// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/CupsLibrary.h"

namespace kelvrum {

const CupsLibrary* CupsLibrary::load() {
    static const CupsLibrary loaded;
    return loaded.complete_ ? &loaded : nullptr;
}

QFunctionPointer CupsLibrary::find(const char* name) {
    const QFunctionPointer found = library_.resolve(name);
    complete_ = complete_ && found != nullptr;
    return found;
}

} // namespace kelvrum
