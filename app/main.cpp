#include <cstdlib>
#include <iostream>

#include "app/command_line.h"
#include "app/program.h"

int main(int count, char** arguments) {
    if (count > 1) {
        if (const auto answer = korvane::AnswerTo(arguments[1])) {
            std::cout << *answer << std::flush;
            std::quick_exit(EXIT_SUCCESS);  // who only asks writes no settings
        }
    }
    return korvane::RunProgram();
}
