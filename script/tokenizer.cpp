#include "script/tokenizer.h"

#include "engine/game.h"

void TidyScriptLine(std::string&) {}

bool IsReservedWord(std::string_view) { return false; }

std::string ReservedWordMessage(std::string_view name) {
  return "Unfortunately, \"" + std::string(name) +
         "\" contains a word, phrase, or symbol used in auto-betting and therefore can't be used "
         "as a player's name.\r\rPlease enter a different name.\r\r";
}

void TokenizeScript(Game&, int, const std::vector<std::string>&, int& errLine, int& errCol,
                    std::string&) {
  errLine = 0;
  errCol = 0;
}
