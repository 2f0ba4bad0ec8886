// The help topics that messages point to (MsgHelpId). The numbers are the
// topics of the help file the window links to; a message with kHelpNone
// shows no Help button target.
#pragma once

constexpr int kHelpNone = 0;
constexpr int kHelpBetting = 1;             // placing bets in general
constexpr int kHelpLimits = 130;            // table limits, bankroll and settings notices
constexpr int kHelpPayoffs = 138;           // the payoff tables
constexpr int kHelpPlayers = 180;           // adding, renaming and cashing out players
constexpr int kHelpPassDice = 205;          // passing the dice
constexpr int kHelpBuyBets = 225;           // Buy bets and their vig
constexpr int kHelpPassLineBet = 43;        // the Pass Line and its odds
constexpr int kHelpComeBet = 45;            // Come bets and their odds
constexpr int kHelpDontPassBet = 46;        // Don't Pass and its odds
constexpr int kHelpDontComeBet = 48;        // Don't Come bets and their odds
constexpr int kHelpContractBets = 250;      // contract bets: what may not be lowered or removed
constexpr int kHelpPutBets = 510;           // put bets on a point
constexpr int kHelpCheckStacks = 310;       // CheckStacks
constexpr int kHelpWorkingBets = 508;       // calling bets on or off
constexpr int kHelpHyperDrive = 540;        // Hyper-Drive
constexpr int kHelpScriptMessages = 550;    // messages of a script
constexpr int kHelpScriptEmpty = 556;       // Check Script on an empty script
constexpr int kHelpScriptSteps = 630;       // the Steps view
constexpr int kHelpScriptActivation = 640;  // switching scripts on, interrupting them
constexpr int kHelpHotKeys = 110;           // Hot-Keys
constexpr int kHelpProbabilities = 105;     // probability files (loaded dice)
constexpr int kHelpSaveFiles = 600;         // saving scripts and probabilities

// The pages of the tool windows, opened by F1 in the window: numbered apart
// from the topics that messages name.
constexpr int kHelpAutoPlay = 9001;       // Auto-Play's standing rules
constexpr int kHelpStatistics = 9002;     // the statistics views and the bankroll graph
constexpr int kHelpSessionsLog = 9003;    // the Sessions Log
constexpr int kHelpEventsLog = 9004;      // the Events Log
constexpr int kHelpDiceRollFiles = 9005;  // dice roll files
constexpr int kHelpAdvantage = 9006;      // the Advantage analysis
constexpr int kHelpBatch = 9007;          // batch runs of many sessions
