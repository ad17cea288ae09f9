// SPDX-License-Identifier: GPL-3.0-or-later
// The functions of the CUPS library that the program calls. The library is loaded on first use: it pulls in
// eighteen others, which would make every start of the program a tenth slower.
#pragma once

#include <QFunctionPointer>
#include <QLibrary>
#include <cups/cups.h>

namespace kelvrum {

class CupsLibrary {
  public:
    /// The library, loaded by the first call; nullptr on a system without it. Any thread may call it.
    static const CupsLibrary* load();

  private:
    CupsLibrary() = default;

    /// The library's function of this name.
    QFunctionPointer find(const char* name);

    QLibrary library_{QStringLiteral("cups"), 2};
    bool complete_ = true; // every function was found

  public:
// Each under its own name, with the type that the library's header declares.
// NOLINTNEXTLINE(bugprone-macro-parentheses): the argument is a name
#define KELVRUM_CUPS(name) decltype(&::name) name = reinterpret_cast<decltype(&::name)>(find(#name))
    KELVRUM_CUPS(cupsAddOption);
    KELVRUM_CUPS(cupsCancelJob2);
    KELVRUM_CUPS(cupsCopyDestInfo);
    KELVRUM_CUPS(cupsDoRequest);
    KELVRUM_CUPS(cupsEncodeOptions2);
    KELVRUM_CUPS(cupsEncryption);
    KELVRUM_CUPS(cupsFreeDestInfo);
    KELVRUM_CUPS(cupsFreeDests);
    KELVRUM_CUPS(cupsFreeOptions);
    KELVRUM_CUPS(cupsGetNamedDest);
    KELVRUM_CUPS(cupsGetResponse);
    KELVRUM_CUPS(cupsLastError);
    KELVRUM_CUPS(cupsLastErrorString);
    KELVRUM_CUPS(cupsSendRequest);
    KELVRUM_CUPS(cupsServer);
    KELVRUM_CUPS(cupsSetPasswordCB2);
    KELVRUM_CUPS(cupsSetServer);
    KELVRUM_CUPS(cupsUser);
    KELVRUM_CUPS(cupsWriteRequestData);
    KELVRUM_CUPS(httpAssembleURIf);
    KELVRUM_CUPS(httpClose);
    KELVRUM_CUPS(httpConnect2);
    KELVRUM_CUPS(httpError);
    KELVRUM_CUPS(httpGetFd);
    KELVRUM_CUPS(httpGetStatus);
    KELVRUM_CUPS(httpSetTimeout);
    KELVRUM_CUPS(httpStatus);
    KELVRUM_CUPS(httpUpdate);
    KELVRUM_CUPS(ippAddInteger);
    KELVRUM_CUPS(ippAddString);
    KELVRUM_CUPS(ippAddStrings);
    KELVRUM_CUPS(ippDelete);
    KELVRUM_CUPS(ippFindAttribute);
    KELVRUM_CUPS(ippGetBoolean);
    KELVRUM_CUPS(ippGetCount);
    KELVRUM_CUPS(ippGetInteger);
    KELVRUM_CUPS(ippGetStatusCode);
    KELVRUM_CUPS(ippGetString);
    KELVRUM_CUPS(ippLength);
    KELVRUM_CUPS(ippNewRequest);
    KELVRUM_CUPS(ippPort);
#undef KELVRUM_CUPS

    /// Returns the connection that CUPS, and so the toolkit, uses in the calling thread. Every 2.x library
    /// exports this, but no header declares it; nullptr where it is missing.
    http_t* (*threadConnection)() = reinterpret_cast<http_t* (*)()>(library_.resolve("_cupsConnect"));
};

} // namespace kelvrum
