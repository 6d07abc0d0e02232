#include "cli/run_cli.h"

int main(int argc, char** argv) {
    return tessarin::RunCli(std::vector<std::string>(argv + 1, argv + argc));
}
