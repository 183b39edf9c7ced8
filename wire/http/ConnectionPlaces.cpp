// SPDX-License-Identifier: MIT
#include "wire/http/ConnectionPlaces.h"

#include <sys/ioctl.h>
#include <sys/socket.h>

namespace wire {

namespace {

/// Whether there are bytes that the connection's thread has not come to read yet.
bool hasUnreadBytes(int socket) {
    int count = 0;
    return ioctl(socket, FIONREAD, &count) == 0 && count > 0;
}

}  // namespace

ConnectionPlaces::Place* ConnectionPlaces::findSilent() {
    Place* longest = nullptr;
    for (Place& place : places_) {
        const Clock::rep since = place.silentSince_;
        if (since != Place::serving && !place.givesWay_ &&
            (longest == nullptr || since < longest->silentSince_) &&
            (place.wait_ != Wait::forBytes || !hasUnreadBytes(place.descriptor_))) {
            longest = &place;
        }
    }
    return longest;
}

ConnectionPlaces::Place* ConnectionPlaces::enter(int descriptor) {
    const base::MutexLock lock(mutex_);
    if (places_.size() - givingWay_ >= limit_) {
        Place* const silent = findSilent();
        if (silent == nullptr) {
            return nullptr;
        }
        silent->givesWay_ = true;
        ++givingWay_;
        // Bytes that arrive in this very moment are still read, and answered.
        shutdown(silent->descriptor_, silent->wait_ == Wait::untilTaken ? SHUT_RDWR : SHUT_RD);
    }
    return &places_.emplace_back(descriptor);
}

void ConnectionPlaces::leave(Place& place) {
    {
        const base::MutexLock lock(mutex_);
        givingWay_ -= place.givesWay_ ? 1 : 0;
        places_.remove_if([&](const Place& each) { return &each == &place; });
    }
    left_.notify_all();
}

void ConnectionPlaces::endReading() {
    const base::MutexLock lock(mutex_);
    for (const Place& place : places_) {
        shutdown(place.descriptor_, SHUT_RD);
    }
}

bool ConnectionPlaces::waitUntilEmpty(Clock::time_point end) {
    base::MutexLock lock(mutex_);
    while (!places_.empty() && lock.waitUntil(left_, end)) {
    }
    return places_.empty();
}

}  // namespace wire
