#include "platform/sdl/wayland_seat.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;

// The protocol: 32-bit words in the machine's order. A message has its object, its size in bytes
// (upper half) with its number (lower half), and arguments.

constexpr std::uint32_t kDisplay = 1, kRegistry = 2, kSync = 3;  // objects
constexpr std::uint32_t kHeaderBytes = 8, kRequestBytes = 12;
constexpr std::uint32_t kSyncRequest = 0, kGetRegistryRequest = 1;
constexpr std::string_view kSeat = "wl_seat";

/// Asks for all that the compositor offers, and for a mark behind it.
constexpr std::array kRequests = {
    kDisplay, kRequestBytes << 16 | kGetRegistryRequest, kRegistry,
    kDisplay, kRequestBytes << 16 | kSyncRequest,        kSync,
};

struct Event {
    std::uint32_t object = 0;
    std::uint32_t number = 0;
    std::span<const std::byte> arguments;
};

std::uint32_t WordAt(std::span<const std::byte> bytes, std::size_t at) {
    std::uint32_t word = 0;
    if (at + sizeof word <= bytes.size()) std::memcpy(&word, bytes.data() + at, sizeof word);
    return word;
}

/// What comes from the compositor, in events.
class EventReader {
  public:
    EventReader(int socket, Clock::time_point end) : socket_(socket), end_(end) {}

    /// The next event, valid until the next call; nothing when none comes.
    std::optional<Event> Next() {
        bytes_.erase(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(taken_));
        taken_ = 0;
        if (!Fill(kHeaderBytes)) return std::nullopt;
        const std::uint32_t sizeAndNumber = WordAt(bytes_, 4);
        const std::size_t size = sizeAndNumber >> 16;
        if (size < kHeaderBytes || !Fill(size)) return std::nullopt;
        taken_ = size;
        return Event{WordAt(bytes_, 0), sizeAndNumber & 0xFFFF,
                     std::span(bytes_).first(size).subspan(kHeaderBytes)};
    }

  private:
    bool Fill(std::size_t size) {
        while (bytes_.size() < size) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - Clock::now());
            pollfd ready{socket_, POLLIN, 0};
            if (left.count() <= 0 || poll(&ready, 1, static_cast<int>(left.count())) <= 0)
                return false;
            std::array<std::byte, 4096> part;
            const ssize_t count = recv(socket_, part.data(), part.size(), MSG_DONTWAIT);
            if (count <= 0) return false;
            bytes_.insert(bytes_.end(), part.begin(), part.begin() + count);
        }
        return true;
    }

    const int socket_;
    const Clock::time_point end_;
    std::vector<std::byte> bytes_;
    std::size_t taken_ = 0;
};

/// The offer of an object: its name, the length of its interface's name, and that.
bool OffersSeat(const Event& event) {
    if (event.object != kRegistry || event.number != 0) return false;
    const std::size_t length = WordAt(event.arguments, 4);
    return length == kSeat.size() + 1 && event.arguments.size() >= 8 + length &&
           std::memcmp(event.arguments.data() + 8, kSeat.data(), kSeat.size()) == 0;
}

std::string SocketPath() {
    const char* const name = std::getenv("WAYLAND_DISPLAY");
    const std::string display = name != nullptr ? name : "wayland-0";
    if (display.starts_with('/')) return display;
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    return folder != nullptr ? std::string(folder) + '/' + display : "";
}

/// False when nobody listens there.
bool Connect(int socket, const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) return false;
    std::ranges::copy(path, address.sun_path);
    return connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

}  // namespace

bool LacksSeat(int socket, std::chrono::milliseconds patience) {
    if (send(socket, kRequests.data(), sizeof kRequests, MSG_NOSIGNAL) != sizeof kRequests)
        return false;
    EventReader reader(socket, Clock::now() + patience);
    while (const std::optional<Event> event = reader.Next()) {
        if (OffersSeat(*event)) return false;
        if (event->object == kSync) return true;
    }
    return false;
}

bool WaylandLacksSeat() {
    constexpr std::chrono::seconds kPatience{1};
    if (std::getenv("WAYLAND_SOCKET") != nullptr) return false;  // it serves one client, once
    const int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connection < 0) return false;
    const bool lacks = Connect(connection, SocketPath()) && LacksSeat(connection, kPatience);
    close(connection);
    return lacks;
}

}  // namespace korvane
