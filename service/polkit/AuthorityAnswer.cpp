// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "service/polkit/AuthorityAnswer.h"

namespace pallistrom {

namespace {

using KeyboardInterface::GrantAnswer;

GrantAnswer readError(const sd_bus_error& error) {
    const bool isMissing = sd_bus_error_has_name(&error, SD_BUS_ERROR_SERVICE_UNKNOWN) != 0 ||
                           sd_bus_error_has_name(&error, SD_BUS_ERROR_NAME_HAS_NO_OWNER) != 0;
    return isMissing ? GrantAnswer::NoAgent : GrantAnswer::Denied;
}

} // namespace

GrantAnswer readAuthorityAnswer(sd_bus_message* answer) {
    if (const sd_bus_error* const error = sd_bus_message_get_error(answer)) {
        return readError(*error);
    }
    int isAuthorized = 0;
    int isChallenge = 0;
    if (sd_bus_message_enter_container(answer, SD_BUS_TYPE_STRUCT, "bba{ss}") <= 0 ||
        sd_bus_message_read(answer, "bb", &isAuthorized, &isChallenge) <= 0) {
        return GrantAnswer::Denied;
    }
    if (isAuthorized != 0) {
        return GrantAnswer::Granted;
    }
    // We let the authority ask a person. Where it says that one would have to be asked, it found
    // nobody who could.
    return isChallenge != 0 ? GrantAnswer::NoAgent : GrantAnswer::Denied;
}

} // namespace pallistrom
