#include "script/vocabulary.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>

namespace {

// Markers for the two generated runs of CheckStack rows.
constexpr const char* kLoopSpaced = "\x01";
constexpr const char* kLoopDotted = "\x02";

struct RawRow {
  const char* key;
  const char* code;
};

constexpr RawRow kRawRows[] = {
    // Punctuation.
    {"(", " L020 "},
    {"[", " L020 "},
    {"{", " L020 "},
    {")", " L021 "},
    {"]", " L021 "},
    {"}", " L021 "},
    {"<>", " L051 "},
    {"<=", " L054 "},
    {"=<", " L054 "},
    {">=", " L055 "},
    {"=>", " L055 "},
    {"=", " L050 "},
    {"<", " L052 "},
    {">", " L053 "},
    {"^", " L060 "},
    {"*", " L061 "},
    {"/", " L062 "},
    {"\\", " L063 "},
    {" mod ", " L064 "},
    {"+", " L065 "},
    {"-", " L066 "},
    {"%", " L061 .01 "},
    {"&", " L074 "},
    {",", " L075 "},
    {";", " L075 "},
    {":", " L100 "},
    // Normalising words.
    {" hour", " hr"},
    {" average", " avg"},
    {" number ", " # "},
    // Auto options and simple actions.
    {" autorolling ", " autoroll "},
    {" stop autoroll L062 hyperdrive ", " A115 "},
    {" autohandle winning bets ", " V670 "},
    {" autohandle losing bets ", " V671 "},
    {" autotake full odds ", " V700 "},
    {" autolay full odds ", " V701 "},
    {" autodown place bets ", " V702 "},
    {" autopass the dice ", " V703 "},
    {" pass the dice ", " A118 "},
    // File and message actions.
    {" open L062 append file for output ", " A220 "},
    {" open L062 clear file for output ", " A221 "},
    {" output to file ", " A223 "},
    {" atm deposit ", " A225 "},
    {" deposit atm ", " A225 "},
    {" atm withdraw ", " A226 "},
    {" withdraw atm ", " A226 "},
    {" show message ", " A210 "},
    {" ask yes L062 no question ", " A211 "},
    {" yes L062 no question ", " A211 "},
    {" answer ", " V3697 "},
    {" play sound ", " A212 "},
    {" playback dice roll file ", " A310 "},
    {" deactivate dice roll file ", " A119 "},
    {" from roll ", " EX1 "},
    {" dice roll file end reached ", " V3005 "},
    {" dice roll file next roll ", " V3006 "},
    {" dice roll file length ", " V3007 "},
    {" activate probability file ", " A213 "},
    {" deactivate probability file ", " A114 "},
    {" show steps ", " A116 "},
    {" seed rng with ", " V3655 L050 "},
    {" seed rng ", " V3655 L050 0 "},
    {" seed ", " V3655 "},
    {" select rng ", " V3672 L050 "},
    {" rng ", " V3672 "},
    // Rolls, points and hands.
    {" # of ", " # "},
    {" actual L061 .01 of rolls ", " V2502 "},
    {" actual L061 .01 rolls ", " V2502 "},
    {" # rolls since ", " V2501 "},
    {" # rolls ", " V2500 "},
    {" L061 .01 of rolls ", " V2502 "},
    {" L061 .01 rolls ", " V2502 "},
    {" rolls per hr ", " V3603 "},
    {" next roll is a comeout roll ", " V3704 "},
    {" next roll is not a comeout roll ", " V3705 "},
    {" last roll was a comeout roll ", " V3706 "},
    {" last roll was not a comeout roll ", " V3707 "},
    {" minimum bet ", " V3610 "},
    {" maximum bet ", " V3611 "},
    {" # comeout rolls ", " V2600 "},
    {" L061 .01 of comeout rolls ", " V2601 "},
    {" L061 .01 comeout rolls ", " V2601 "},
    {" # passes ", " V2602 "},
    {" L061 .01 of passes ", " V2603 "},
    {" L061 .01 passes ", " V2603 "},
    {" # misses ", " V2604 "},
    {" L061 .01 of misses ", " V2605 "},
    {" L061 .01 misses ", " V2605 "},
    {" shooter passes ", " V3300 "},
    {" shooter misses ", " V3301 "},
    // Point phrases.
    {" point is decided against or for ", " V3500 L050 0 L071 V3502 L050 "},
    {" point is decided for or against ", " V3500 L050 0 L071 V3502 L050 "},
    {" point is decided against ", " V3500 L050 0 L071 V3510 L050 7 L071 V3502 L050 "},
    {" point is decided for ", " V3500 L050 0 L071 V3510 L051 7 L071 V3502 L050 "},
    {" point is decided ", " V3709 "},
    {" point is not established on ", " V3500 L051 "},
    {" point is established on ", " V3500 L050 "},
    {" point is not established ", " V3711 "},
    {" point is established ", " V3710 "},
    {" # points ", " V4606 "},
    {" L061 .01 of points ", " V4607 "},
    {" L061 .01 points ", " V4607 "},
    {" does not exist ", " L050 0 "},
    {" exists ", " L051 0 "},
    {" exist ", " L051 0 "},
    {" shooters last point ", " V3501 "},
    {" last point ", " V3501 "},
    {" shooters point ", " V3500 "},
    {" point ", " V3500 "},
    {" seven out ", " V3708 "},
    {" sevenout ", " V3708 "},
    {" 7 out ", " V3708 "},
    {" 7out ", " V3708 "},
    {" dice faces ", " V3511 "},
    {" dice combination ", " V3511 "},
    {" dice combo ", " V3511 "},
    {" dice total ", " V3510 "},
    // Bankroll.
    {" avg bankroll ", " F110 "},
    {" last available bankroll ", " V655 "},
    {" available bankroll ", " V651 "},
    {" high bankroll ", " V652 "},
    {" low bankroll ", " V653 "},
    {" bankroll ", " V654 "},
    // Hours and comps.
    {" simulated hrs ", " V1200 "},
    {" hrs ", " V1200 "},
    {" comp rate ", " V3691 "},
    {" comps ", " V1100 "},
    // Players.
    {" player1 ", " P1 "},
    {" player2 ", " P2 "},
    {" player3 ", " P3 "},
    {" player4 ", " P4 "},
    {" player5 ", " P5 "},
    {" player6 ", " P6 "},
    {" player7 ", " P7 "},
    {" player8 ", " P8 "},
    {" player name ", " F850 "},
    {" player ", " F050 "},
    {" new shooter ", " V3002 "},
    {" original shooter ", " P12 "},
    {" last shooter ", " P11 "},
    {" shooter ", " P10 "},
    {" autobettor ", " P14 "},
    {" bettor ", " P13 "},
    // CheckStacks.
    {" checkstack", " cs"},
    {" cs name", " csn"},
    {" csname", " csn"},
    {" name cs", " csn"},
    {" css ", " V980 "},
    {" csns ", " V990 "},
    {" cs#", " cs"},
    {" csn#", " csn"},
    {kLoopSpaced, ""},
    {" csn ", " F800 "},
    {" csn.", " F800."},
    {" cs ", " F021 "},
    {" cs.", " F021."},
    {kLoopDotted, ""},
    // Events and new sessions.
    {" initializing script ", " V3000 "},
    {" beginning new session ", " V3001 "},
    {" beginning new hand ", " V3002 "},
    {" start new session L020 preserve V980 L021 ", " A101 "},
    {" start new session L020 preserve dice roll file L021 ", " A102 "},
    {" start new session L020 preserve V980 L075 dice roll file L021 ", " A103 "},
    {" start new session L020 preserve dice roll file L075 V980 L021 ", " A103 "},
    {" start new session ", " A100 "},
    {" buy the place bet on", " A450 "},
    {" call off ", " A451 "},
    {" call on ", " A452 "},
    {" remove on L062 off button from ", " A453 "},
    {" remove on L062 off button ", " A453 "},
    {" swap ", " A300 "},
    // Bet families.
    {" outside lay bets ", " V4002 "},
    {" inside lay bets ", " V4001 "},
    {" lay bets ", " V4000 "},
    {" lay4 ", " V001 "},
    {" lay5 ", " V002 "},
    {" lay6 ", " V003 "},
    {" lay8 ", " V004 "},
    {" lay9 ", " V005 "},
    {" lay10 ", " V006 "},
    {" lay ", " F001 "},
    {" outside dontcomeodds bets ", " V4022 "},
    {" inside dontcomeodds bets ", " V4021 "},
    {" dontcomeodds bets ", " V4020 "},
    {" dontcomeodds4 ", " V013 "},
    {" dontcomeodds5 ", " V014 "},
    {" dontcomeodds6 ", " V015 "},
    {" dontcomeodds8 ", " V016 "},
    {" dontcomeodds9 ", " V017 "},
    {" dontcomeodds10 ", " V018 "},
    {" dontcomeodds ", " F003 "},
    {" outside dontcome bets ", " V4012 "},
    {" inside dontcome bets ", " V4011 "},
    {" dontcome bets ", " V4010 "},
    {" dontcome4 ", " V007 "},
    {" dontcome5 ", " V008 "},
    {" dontcome6 ", " V009 "},
    {" dontcome8 ", " V010 "},
    {" dontcome9 ", " V011 "},
    {" dontcome10 ", " V012 "},
    {" dontcome L020 ", " F002 "},
    {" dontcome ", " V048 "},
    {" outside comeodds bets ", " V4042 "},
    {" inside comeodds bets ", " V4041 "},
    {" comeodds bets ", " V4040 "},
    {" comeodds4 ", " V025 "},
    {" comeodds5 ", " V026 "},
    {" comeodds6 ", " V027 "},
    {" comeodds8 ", " V028 "},
    {" comeodds9 ", " V029 "},
    {" comeodds10 ", " V030 "},
    {" comeodds ", " F005 "},
    {" outside come bets ", " V4032 "},
    {" inside come bets ", " V4031 "},
    {" come bets ", " V4030 "},
    {" come4 ", " V019 "},
    {" come5 ", " V020 "},
    {" come6 ", " V021 "},
    {" come8 ", " V022 "},
    {" come9 ", " V023 "},
    {" come10 ", " V024 "},
    {" come L020 ", " F004 L020 "},
    {" come ", " V045 "},
    {" outside place bets ", " V4052 "},
    {" inside place bets ", " V4051 "},
    {" place bets ", " V4050 "},
    {" place4 ", " V031 "},
    {" place5 ", " V032 "},
    {" place6 ", " V033 "},
    {" place8 ", " V034 "},
    {" place9 ", " V035 "},
    {" place10 ", " V036 "},
    {" place ", " F006 "},
    {" outside buy bets ", " V4062 "},
    {" inside buy bets ", " V4061 "},
    {" buy bets ", " V4060 "},
    {" buy4 ", " V037 "},
    {" buy5 ", " V038 "},
    {" buy6 ", " V039 "},
    {" buy8 ", " V040 "},
    {" buy9 ", " V041 "},
    {" buy10 ", " V042 "},
    {" buy ", " F007 "},
    // Line bets and one-roll bets.
    {" passlineodds ", " V044 "},
    {" passline ", " V043 "},
    {" dontpassodds ", " V047 "},
    {" dontpass ", " V046 "},
    {" field ", " V049 "},
    {" big bets ", " V4070 "},
    {" big6 ", " V050 "},
    {" big8 ", " V051 "},
    {" big ", " F008 "},
    {" hardway bets ", " V4071 "},
    {" hard bets ", " V4071 "},
    {" hard4 ", " V052 "},
    {" hard6 ", " V053 "},
    {" hard8 ", " V054 "},
    {" hard10 ", " V055 "},
    {" hard ", " F009 "},
    {" two ", " V056 "},
    {" three ", " V057 "},
    {" seven ", " V058 "},
    {" eleven ", " V059 "},
    {" twelve ", " V060 "},
    {" craps ", " V061 "},
    {" cande ", " V062 "},
    {" world ", " V064 "},
    {" whirl ", " V064 "},
    {" horn ", " V063 "},
    {" under7 ", " V066 "},
    {" over7 ", " V065 "},
    // Hop bets.
    {" hop bets ", " V4072 "},
    {" hop13 ", " V067 "},
    {" hop31 ", " V067 "},
    {" hop14 ", " V068 "},
    {" hop41 ", " V068 "},
    {" hop15 ", " V069 "},
    {" hop51 ", " V069 "},
    {" hop16 ", " V070 "},
    {" hop61 ", " V070 "},
    {" hop22 ", " V071 "},
    {" hop23 ", " V072 "},
    {" hop32 ", " V072 "},
    {" hop24 ", " V073 "},
    {" hop42 ", " V073 "},
    {" hop25 ", " V074 "},
    {" hop52 ", " V074 "},
    {" hop26 ", " V075 "},
    {" hop62 ", " V075 "},
    {" hop33 ", " V076 "},
    {" hop34 ", " V077 "},
    {" hop43 ", " V077 "},
    {" hop35 ", " V078 "},
    {" hop53 ", " V078 "},
    {" hop36 ", " V079 "},
    {" hop63 ", " V079 "},
    {" hop44 ", " V080 "},
    {" hop45 ", " V081 "},
    {" hop54 ", " V081 "},
    {" hop46 ", " V082 "},
    {" hop64 ", " V082 "},
    {" hop55 ", " V083 "},
    {" hop ", " F010 "},
    {" midway ", " V084 "},
    {" fire ", " V085 "},
    {" bets ", " V4100 "},
    // Time frames.
    {" current hand ", " H1 "},
    {" last hand ", " H2 "},
    {" all hands ", " H3 "},
    {" current session ", " H3 "},
    {" last session ", " H4 "},
    {" all sessions ", " H5 "},
    // Statistic classes and fields.
    {" wagers ", " X1 "},
    {" wagered ", " X1 "},
    {" wager ", " X1 "},
    {" wins ", " X2 "},
    {" win ", " X2 "},
    {" has won ", " X2 "},
    {" won ", " X2 "},
    {" losses ", " X3 "},
    {" loss ", " X3 "},
    {" loses ", " X3 "},
    {" lose ", " X3 "},
    {" has lost ", " X3 "},
    {" lost ", " X3 "},
    {" net L061 .01 ", " X5 "},
    {" net ", " X4 "},
    {" established ", " X6 "},
    {" passed ", " X7 "},
    {" missed ", " X8 "},
    {" current # ", " Y32 "},
    {" current# ", " Y32 "},
    {" current $ ", " Y33 "},
    {" current$ ", " Y33 "},
    {" total # ", " Y21 "},
    {" total# ", " Y21 "},
    {" total $ ", " Y22 "},
    {" total$ ", " Y22 "},
    {" total ", " Y0 "},
    {" naturals ", " Y14 "},
    {" natural ", " Y14 "},
    {" points ", " Y15 "},
    {" high $ ", " Y23 "},
    {" high$ ", " Y23 "},
    {" low $ ", " Y24 "},
    {" low$ ", " Y24 "},
    {" avg # L062 hr ", " Y29 "},
    {" avg# L062 hr ", " Y29 "},
    {" avg $ L062 hr ", " Y30 "},
    {" avg$ L062 hr ", " Y30 "},
    {" avg $ ", " Y25 "},
    {" avg$ ", " Y25 "},
    {" last dec $ ", " Y26 "},
    {" last dec$ ", " Y26 "},
    {" last roll # ", " Y27 "},
    {" last roll# ", " Y27 "},
    {" last roll $ ", " Y28 "},
    {" last roll$ ", " Y28 "},
    {" last $ ", " Y26 "},
    {" last$ ", " Y26 "},
    {" last ", " Y26 "},
    {" expctd value ", " Y31 "},
    {" expected value ", " Y31 "},
    {" working ", " Y34 "},
    {" called off ", " Y36 "},
    {" called on ", " Y35 "},
    {" resolves ", " X1 Y27 L053 0 "},
    {" resolve ", " X1 Y27 L053 0 "},
    // Die faces.
    {" die1 face1 ", " Y78 "},
    {" die1 face2 ", " Y79 "},
    {" die1 face3 ", " Y80 "},
    {" die1 face4 ", " Y81 "},
    {" die1 face5 ", " Y82 "},
    {" die1 face6 ", " Y83 "},
    {" die2 face1 ", " Y84 "},
    {" die2 face2 ", " Y85 "},
    {" die2 face3 ", " Y86 "},
    {" die2 face4 ", " Y87 "},
    {" die2 face5 ", " Y88 "},
    {" die2 face6 ", " Y89 "},
    {" die1 ", " V3512 "},
    {" die2 ", " V3513 "},
    {" die ", " F190 "},
    // Number words.
    {" all rolls ", " 0 "},
    {" one ", " 1 "},
    {" once ", " 1 "},
    {" two ", " 2 "},
    {" twice ", " 2 "},
    // Date, time and functions.
    {" date L062 time ", " V3693 "},
    {" date$ ", " S-01 "},
    {" time$ ", " S-02 "},
    {" timer ", " V3696 "},
    {" input$ ", " F825 "},
    {" input ", " F125 "},
    {" highest ", " F126 "},
    {" largest ", " F126 "},
    {" lowest ", " F127 "},
    {" smallest ", " F127 "},
    {" avg ", " F128 "},
    {" mean ", " F128 "},
    {" standard deviation ", " F129 "},
    {" stddev ", " F129 "},
    {" sum ", " F130 "},
    {" count ", " F131 "},
    {" length ", " F118 "},
    {" len ", " F118 "},
    // Rounding.
    {" round up to the nearest ", " A489 "},
    {" round down to the nearest ", " A488 "},
    {" round to the nearest ", " A487 "},
    // Comparison words.
    {" are greater than or equal to ", " L055 "},
    {" is greater than or equal to ", " L055 "},
    {" greater than or equal to ", " L055 "},
    {" are not less than ", " L055 "},
    {" is not less than ", " L055 "},
    {" not less than ", " L055 "},
    {" are less than or equal to ", " L054 "},
    {" is less than or equal to ", " L054 "},
    {" less than or equal to ", " L054 "},
    {" are not greater than ", " L054 "},
    {" is not greater than ", " L054 "},
    {" not greater than ", " L054 "},
    {" are greater than ", " L053 "},
    {" is greater than ", " L053 "},
    {" greater than ", " L053 "},
    {" are more than ", " L053 "},
    {" is more than ", " L053 "},
    {" more than ", " L053 "},
    {" are less than ", " L052 "},
    {" is less than ", " L052 "},
    {" less than ", " L052 "},
    {" are not equal to ", " L051 "},
    {" is not equal to ", " L051 "},
    {" not equal to ", " L051 "},
    {" does not equal ", " L051 "},
    {" doesnt equal ", " L051 "},
    {" are equal to ", " L050 "},
    {" is equal to ", " L050 "},
    {" equal to ", " L050 "},
    {" equals ", " L050 "},
    {" equal ", " L050 "},
    // Structure words.
    {" endif ", " L012 "},
    {" if ", " L001 "},
    {" then ", " L009 "},
    {" elseif ", " L011 "},
    {" else ", " L010 "},
    {" goto ", " L014 "},
    {" go to ", " L014 "},
    {" gosub ", " L015 "},
    {" return ", " L013 "},
    // Not-equal words.
    {" is not ", " L051 "},
    {" isnt ", " L051 "},
    {" are not ", " L051 "},
    {" arent ", " L051 "},
    {" was not ", " L051 "},
    {" wasnt ", " L051 "},
    {" were not ", " L051 "},
    {" werent ", " L051 "},
    {" have not ", " L051 "},
    {" havent ", " L051 "},
    {" has not ", " L051 "},
    {" hasnt ", " L051 "},
    // Equal words.
    {" from ", " L050 "},
    {" were ", " L050 "},
    {" was ", " L050 "},
    {" are ", " L050 "},
    {" have ", " L050 "},
    {" has ", " L050 "},
    {" is ", " L050 "},
    {" on ", " L050 "},
    {" to ", " L050 "},
    {" as ", " L050 "},
    // Mathematical and string functions.
    {" sqr ", " F100 "},
    {" int ", " F101 "},
    {" abs ", " F102 "},
    {" asc ", " F104 "},
    {" rnd ", " V3698 "},
    {" right$ ", " F802 "},
    {" left$ ", " F801 "},
    {" mid$ ", " F805 "},
    {" removeleft$ ", " F803 "},
    {" removeright$ ", " F804 "},
    {" removemid$ ", " F806 "},
    {" insert$ ", " F809 "},
    {" instr ", " F203 "},
    {" val ", " F117 "},
    {" str$ ", " F810 "},
    {" chr$ ", " F811 "},
    {" space$ ", " F812 "},
    {" cr ", " F811 L020 13 L021 L074 F811 L020 10 L021 "},
    {" newline ", " F811 L020 13 L021 L074 F811 L020 10 L021 "},
    {" new line ", " F811 L020 13 L021 L074 F811 L020 10 L021 "},
    {" tab ", " F811 L020 9 L021 "},
    // Action verbs.
    {" bet ", " A481 "},
    {" multiply by ", " A482 "},
    {" multiply ", " A482 "},
    {" divide by ", " A483 "},
    {" divide ", " A483 "},
    {" add ", " A484 "},
    {" subtract ", " A485 "},
    {" clear ", " A460 "},
    {" remove ", " A460 "},
    {" take down ", " A460 "},
    {" takedown ", " A460 "},
    // Logic words.
    {" not ", " L070 "},
    {" and ", " L071 "},
    {" xor ", " L073 "},
    {" or ", " L072 "},
    // Other words.
    {" EX1 ", " S-15 "},
    {" true ", " -1 "},
    {" false ", " 0 "},
    {" yes ", " 6 "},
    {" no ", " 7 "},
    {" of ", " L061 "},
    // Block words.
    {" exitdo ", " L018 "},
    {" do ", " L016 "},
    {" loop ", " L017 "},
    // List keywords.
    {" any ", " I002 "},
    {" all ", " I003 "},
    // Input forms.
    {" F125 L020 L021 ", " F125 L020 S000 L021 "},
    {" F825 L020 L021 ", " F825 L020 S000 L021 "},
};

int Bit(unsigned a, unsigned b) { return static_cast<int>((a * 31u + b * 7u + (a ^ b)) & 255u); }

void AddRow(std::vector<VocabularyRow>& rows, std::string key, std::string code) {
  rows.push_back(MakeVocabularyRow(std::move(key), std::move(code)));
}

std::vector<VocabularyRow> BuildRows() {
  std::vector<VocabularyRow> rows;
  rows.reserve(1000);
  char a[32], b[32], c[32], d[32];
  for (const RawRow& raw : kRawRows) {
    std::string key = raw.key;
    if (key == kLoopSpaced || key == kLoopDotted) {
      const bool dotted = key == kLoopDotted;
      for (int i = 99; i >= 0; --i) {
        std::snprintf(a, sizeof a, dotted ? " cs%d." : " cs%d ", i);
        std::snprintf(b, sizeof b, dotted ? " V1%02d." : " V1%02d ", i);
        std::snprintf(c, sizeof c, dotted ? " csn%d." : " csn%d ", i);
        std::snprintf(d, sizeof d, dotted ? " V8%02d." : " V8%02d ", i);
        AddRow(rows, a, b);
        AddRow(rows, c, d);
      }
      continue;
    }
    AddRow(rows, std::move(key), raw.code);
  }
  return rows;
}

// The punctuation rows replace in one left-to-right pass.
bool ReplaceChar(std::string& work, const VocabularyRow& row) {
  const char key = row.Key[0];
  if (work.find(key) == std::string::npos) return false;
  std::string out;
  out.reserve(work.size() + work.size() / 2);
  for (char c : work) {
    if (c == key)
      out += row.Code;
    else
      out += c;
  }
  work = std::move(out);
  return true;
}

// Replaces every occurrence of row.Key in work; true if any was replaced.
bool ReplaceAll(std::string& work, const VocabularyRow& row) {
  if (row.onePass) return ReplaceChar(work, row);
  bool any = false;
  std::size_t from = 0;
  // Each replacement shortens the work left for a key that does not come
  // back; the guard only stops a pathological row from looping.
  const std::size_t guard = 4 * work.size() + 16;
  for (std::size_t n = 0; n < guard; ++n) {
    const std::size_t pos = work.find(row.Key, from);
    if (pos == std::string::npos) return any;
    work.replace(pos, row.Key.size(), row.Code);
    any = true;
    // The search starts again at the line's start, so that a replacement and
    // the text before it may match anew. No match lies wholly before `pos`
    // (that one would have been found first), so starting at the earliest
    // place that overlaps the new text finds the same occurrence. A code
    // that holds its own key would loop: then the search moves past it.
    from = row.codeHoldsKey ? pos + row.Code.size()
                            : (pos + 1 > row.Key.size() ? pos + 1 - row.Key.size() : 0);
  }
  return any;
}

void BlankAll(std::string& shadow, const std::string& key) {
  for (std::size_t pos = shadow.find(key); pos != std::string::npos; pos = shadow.find(key, pos))
    shadow.replace(pos, key.size(), key.size(), ' ');
}

void ApplyRow(std::string& work, PhraseSignature& workSig, std::string& shadow,
              const PhraseSignature& shadowSig, const VocabularyRow& row) {
  if (row.Key.empty()) return;
  if (row.sig.Within(workSig) && ReplaceAll(work, row)) {
    SqueezeBlanks(work);
    workSig = SignatureOf(work);
  }
  // Blanking only removes characters, so the shadow's first signature stays a
  // valid (wider) filter.
  if (row.blankInShadow && !row.keyHasCode && row.sig.Within(shadowSig)) BlankAll(shadow, row.Key);
}

}  // namespace

PhraseSignature SignatureOf(std::string_view text) {
  PhraseSignature s;
  auto set = [&s](int bit) { s.bits[bit >> 6] |= std::uint64_t{1} << (bit & 63); };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto ch = static_cast<unsigned char>(text[i]);
    set(Bit(ch, 0));
    if (i > 0) set(Bit(static_cast<unsigned char>(text[i - 1]), ch) ^ 128);
  }
  return s;
}

VocabularyRow MakeVocabularyRow(std::string key, std::string code) {
  VocabularyRow row;
  row.sig = SignatureOf(key);
  // The logic words (" L001 " .. " L019 ") and the colon stay in the shadow,
  // where the tokenizer looks for their source columns.
  if (code.size() >= 5 && code[0] == ' ' && code[1] == 'L' &&
      std::isdigit(static_cast<unsigned char>(code[2]))) {
    const int n = std::atoi(code.c_str() + 2);
    const bool single = code.find(' ', 2) == code.size() - 1;
    if ((n < 20 && single) || code == " L100 ") row.blankInShadow = false;
  }
  for (char ch : key)
    if (std::isupper(static_cast<unsigned char>(ch))) row.keyHasCode = true;
  row.codeHoldsKey = code.find(key) != std::string::npos;
  row.onePass = key.size() == 1 && key[0] != ' ' && code.find(key[0]) == std::string::npos;
  row.Key = std::move(key);
  row.Code = std::move(code);
  return row;
}

const std::vector<VocabularyRow>& StaticVocabulary() {
  static const std::vector<VocabularyRow> rows = BuildRows();
  return rows;
}

void SqueezeBlanks(std::string& text) {
  std::size_t out = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ' && out > 0 && text[out - 1] == ' ') continue;
    text[out++] = text[i];
  }
  text.resize(out);
}

void ApplyVocabulary(std::string& work, std::string& shadow,
                     const std::vector<VocabularyRow>& extraRows) {
  PhraseSignature workSig = SignatureOf(work);
  const PhraseSignature shadowSig = SignatureOf(shadow);
  for (const VocabularyRow& row : StaticVocabulary())
    ApplyRow(work, workSig, shadow, shadowSig, row);
  for (const VocabularyRow& row : extraRows) ApplyRow(work, workSig, shadow, shadowSig, row);
}
