// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/Credentials.h"

#include "wire/http/BasicAuthentication.h"
#include "wire/http/CredentialsFile.h"

namespace cimhost {

bool equalInConstantTime(std::string_view given, std::string_view secret) {
    // Every byte given is compared, whatever came before; the secret is gone round as often as it
    // takes. An empty secret equals nothing.
    unsigned difference = given.size() == secret.size() && !secret.empty() ? 0 : 1;
    for (std::size_t i = 0; i < given.size(); ++i) {
        const char expected = secret.empty() ? '\0' : secret[i % secret.size()];
        difference |= static_cast<unsigned char>(given[i] ^ expected);
    }
    return difference == 0;
}

Credentials Credentials::fromFile(const std::string& path) {
    Credentials credentials;
    for (const std::string& userAndPassword : wire::readCredentialsFile(path)) {
        const std::string authorization = wire::basicAuthorization(userAndPassword);
        credentials.tokens_.emplace_back(wire::basicToken(authorization));
    }
    return credentials;
}

bool Credentials::admit(std::string_view authorization) const {
    const std::string_view given = wire::basicToken(authorization);
    bool admitted = false;
    for (const std::string& token : tokens_) {
        // No early end: the place of a user in the file does not show either.
        admitted |= equalInConstantTime(given, token);
    }
    return admitted;
}

}  // namespace cimhost
