#include "app/program.h"

int main() {
    return korvane::RunProgram();
}
