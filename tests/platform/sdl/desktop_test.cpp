#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <string>

#include "platform/sdl/desktop_density.h"
#include "platform/sdl/wayland_seat.h"

namespace korvane {
namespace {

using namespace std::string_view_literals;

TEST(DesktopDensityTest, NumbersAreFoundInTheTextsThatHoldThem) {
    constexpr std::optional<double> kNone;
    const std::pair<std::string_view, std::optional<double>> kResources[] = {
        {"Xft.dpi:\t192\n", 192},
        {"*color: 1\nXft.dpi: 120.5\nXft.hinting: 1", 120.5},
        {"Xft.dpi:96", 96},
        {"notXft.dpi: 96\n", kNone},
        {"Xft.dpi: large\n", kNone},
        {"Xft.dpi:", kNone},
        {"", kNone},
    };
    for (const auto& [text, dpi] : kResources)
        EXPECT_EQ(FontDpiIn(text), dpi) << text;
    const std::pair<std::string_view, std::optional<double>> kScales[] = {
        {"2", 2}, {"1", 1}, {"0", kNone}, {"-2", kNone}, {"", kNone}, {"two", kNone}};
    for (const auto& [text, scale] : kScales)
        EXPECT_EQ(WholeScaleIn(text), scale) << text;
}

std::string Word(std::uint32_t word) {
    return {reinterpret_cast<const char*>(&word), sizeof word};
}

std::string Event(std::uint32_t object, const std::string& arguments) {
    return Word(object) + Word(static_cast<std::uint32_t>(8 + arguments.size()) << 16) + arguments;
}

std::string Offer(const std::string& interface) {
    std::string text = interface + '\0';
    const std::string length = Word(static_cast<std::uint32_t>(text.size()));
    text.resize((text.size() + 3) / 4 * 4);
    return Event(2, Word(1) + length + text + Word(7));
}

TEST(WaylandSeatTest, OnlyACompositorThatOffersNoneLacksASeat) {
    const std::string others = Offer("wl_compositor") + Offer("wl_seats") + Offer("wl_sea");
    const std::string done = Event(3, Word(0));
    struct Case {
        const char* name;
        std::string answer;
        bool closes, lacks;
    };
    const Case cases[] = {
        {"none", others + done, false, true},
        {"a seat", others + Offer("wl_seat") + done, false, false},
        {"a seat later", others + done + Offer("wl_seat"), false, true},
        {"of another object", Event(5, Word(1) + Word(8) + std::string("wl_seat\0", 8)) + done,
         false, true},
        {"no answer", "", false, false},
        {"half an answer", others, false, false},
        {"a closed connection", others, true, false},
        {"half an event", done.substr(0, 9), true, false},
        {"an event of no size", Word(2) + Word(0) + done, false, false},
        {"a name longer than its event", Event(2, Word(1) + Word(8) + "wl_s") + done, false, true},
        {"many",
         std::string(others) +
             [] {
                 std::string all;
                 for (int i = 0; i < 2000; ++i)
                     all += Offer("wl_output");
                 return all;
             }() +
             done,
         false, true},
    };
    for (const Case& c : cases) {
        std::array<int, 2> ends{};
        ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
        ASSERT_EQ(send(ends[1], c.answer.data(), c.answer.size(), 0), std::ssize(c.answer));
        if (c.closes) shutdown(ends[1], SHUT_WR);
        EXPECT_EQ(LacksSeat(ends[0], std::chrono::milliseconds(20)), c.lacks) << c.name;
        close(ends[0]);
        close(ends[1]);
    }
}

}  // namespace
}  // namespace korvane
