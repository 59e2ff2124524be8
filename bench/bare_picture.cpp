// The least that a program on SDL2 does to show one 640 x 480 picture in a window, in the way that
// costs it least. `first_picture` measures Korvane's start against it.

#include <SDL.h>

int main(int, char**) {
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) return 1;
    SDL_Window* window =
        SDL_CreateWindow("Bare", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, 640, 480, 0);
    SDL_Surface* surface = window ? SDL_GetWindowSurface(window) : nullptr;
    if (!surface) return 1;
    SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 20, 60, 120));
    SDL_UpdateWindowSurface(window);
    SDL_Event event;
    while (SDL_WaitEvent(&event) && event.type != SDL_QUIT) {
    }
    SDL_Quit();
    return 0;
}
