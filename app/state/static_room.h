#pragma once

#include <memory>

namespace korvane {

/// Room for an object that a global reference names before the object exists. `MadeInRoom` makes
/// and destroys it; whoever uses it earlier or later uses memory without an object.
///
/// The standard library's own streams are made in this way. It lets each module declare and place
/// its object while one file decides in which order all of them are made.
template <typename T>
union StaticRoom {
    constexpr StaticRoom() : nothing() {}
    constexpr ~StaticRoom() {}

    char nothing;
    T object;
};

/// Makes an object in its room and destroys it at the end of its own life.
template <typename T>
class MadeInRoom {
  public:
    explicit MadeInRoom(T& room) : object_(*std::construct_at(&room)) {}
    ~MadeInRoom() { std::destroy_at(&object_); }
    MadeInRoom(const MadeInRoom&) = delete;
    MadeInRoom& operator=(const MadeInRoom&) = delete;

  private:
    T& object_;
};

}  // namespace korvane
