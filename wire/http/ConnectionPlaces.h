// SPDX-License-Identifier: MIT
// The places that a server has for connections, and who gives way when they are all taken.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <list>

#include "base/ThreadSafety.h"

namespace wire {

/// Any number of threads may use it at once.
class ConnectionPlaces {
public:
    using Clock = std::chrono::steady_clock;

    /// What the server waits for while it is the client's turn.
    enum class Wait {
        forBytes,    ///< if some have come, the client keeps its place
        untilTaken,  ///< the client does not take its answer, whatever it sends
        asPenalty,   ///< the client has guessed a password, whatever it sends
    };

    /// One connection's place. Its own thread says what the connection does; a new one waits for
    /// the client.
    class Place {
    public:
        explicit Place(int descriptor) : descriptor_(descriptor) { awaitClient(); }

        int descriptor() const { return descriptor_; }

        /// The client has been heard, or answered: its silence counts from now.
        void restartSilence() { since_ = Clock::now().time_since_epoch().count(); }

        /// It is the client's turn: it has been silent since then, and may have to give way.
        void awaitClient(Wait wait = Wait::forBytes) {
            wait_ = wait;
            silentSince_ = since_;
        }

        /// The client waits for the server, and keeps its place.
        void serveClient() { silentSince_ = serving; }

        /// Whether the connection has been told to end in favour of another one.
        bool givesWay() const { return givesWay_; }

    private:
        friend class ConnectionPlaces;
        static constexpr Clock::rep serving = 0;

        int descriptor_;
        Clock::rep since_ = Clock::now().time_since_epoch().count();
        std::atomic<Clock::rep> silentSince_{serving};
        std::atomic<Wait> wait_{Wait::forBytes};
        std::atomic<bool> givesWay_{false};
    };

    explicit ConnectionPlaces(std::size_t limit) : limit_(limit) {}

    /// A place for a connected socket, until leave(). If all are taken, the connection whose client
    /// has been silent for longest gives way: nothing more is read from it, and nothing more of an
    /// answer that it does not take is written, so that its thread ends. Null if all clients are
    /// being served.
    Place* enter(int descriptor);

    /// To be called before the descriptor is closed, so that nobody ends its successor of the same
    /// number.
    void leave(Place& place);

    /// Nothing more is read from any connection; answers can still be written.
    void endReading();

    /// Waits until all have left. Returns whether they have by `end`.
    bool waitUntilEmpty(Clock::time_point end);

private:
    Place* findSilent() ZORVA_REQUIRES(mutex_);

    const std::size_t limit_;
    base::Mutex mutex_;
    std::condition_variable left_;
    std::list<Place> places_ ZORVA_GUARDED_BY(mutex_);
    std::size_t givingWay_ ZORVA_GUARDED_BY(mutex_) = 0;
};

}  // namespace wire
