// ravelton-cli: the headless front door of Ravelton.
#include <CLI/CLI.hpp>

int main(int argc, char** argv) {
  CLI::App app{"Ravelton craps simulator, headless"};
  app.require_subcommand(0, 1);
  CLI11_PARSE(app, argc, argv);
  return 0;
}
