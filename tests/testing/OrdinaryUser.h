// SPDX-License-Identifier: GPL-3.0-or-later
// Rights of files hold for an ordinary user only: tests of them must not run as the system's administrator.
#pragma once

namespace kelvrum::testing {

/// While this lives the process has no more rights than an ordinary user, also where the administrator has
/// started it. Files and folders made meanwhile belong to that user; make a TempFolder after this, so that it
/// goes before. Throws std::system_error when the rights cannot be given up.
class OrdinaryUser {
  public:
    OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser();

  private:
    bool changed_ = false;
};

} // namespace kelvrum::testing
