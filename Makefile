# Ravelton: set-up, build, run and test on a Debian machine.
#   make run       install what is missing, build, open the desktop table
#                  (without a display: the headless demo)
#   make screenshots  the desktop table rendered offscreen into docs/screenshots/
#   make test      install what is missing, build, run every test (with a
#                  two-rank MPI run of ravelton-cli batch)
#   make sanitize  the same tests in a Debug build with ASan and UBSan
#   make bench     the Google Benchmark programs (Release)
#   make examples  the sample games and dice of examples/ made afresh by ravelton-cli

BUILD    ?= build
SANBUILD ?= build-san
JOBS     ?= $(shell nproc)
SUDO     := $(shell [ "$$(id -u)" -eq 0 ] || echo sudo)

PACKAGES := g++ cmake make libgtest-dev libgmock-dev libbenchmark-dev \
            libcli11-dev libfmt-dev nlohmann-json3-dev \
            qt6-base-dev qt6-multimedia-dev fonts-dejavu-core espeak-ng libopenmpi-dev openmpi-bin

.PHONY: deps configure build run demo screenshots examples test sanitize bench clean

deps:
	@missing=$$(for p in $(PACKAGES); do dpkg -s $$p >/dev/null 2>&1 || echo $$p; done); \
	if [ -n "$$missing" ]; then \
	  echo "Installing: $$missing"; \
	  $(SUDO) apt-get update -qq && \
	  DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y -qq $$missing; \
	fi

$(BUILD)/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release -DRAVELTON_MPI=ON

configure: $(BUILD)/CMakeCache.txt

build: deps configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then $(BUILD)/app/ravelton; \
	else echo "No display found: running the headless demo instead."; $(MAKE) --no-print-directory demo; fi

demo: build
	$(BUILD)/app/ravelton-cli run --rolls 1000000 --seed 20261122 \
	  --player Alice=1000 --bet 'Alice:Pass Line=10' --take-odds Alice \
	  --win-rule Alice:2 --lose-rule Alice:2 --allow-negative Alice

SHOTS := docs/screenshots
DEMO_PLAYER := --player Alice=1000 --bet 'Alice:Pass Line=10' --take-odds Alice \
               --win-rule Alice:2 --lose-rule Alice:2 --allow-negative Alice --seed 20261122
# Two players with decisions of several kinds, for the statistics views.
STATS_GAME := $(DEMO_PLAYER) --player Ben=2000 --bet 'Ben:Pass Line=5' --bet 'Ben:Field=5' \
              --win-rule Ben:2 --lose-rule Ben:2

# The pictures start from an empty data folder of their own: they look the
# same on any machine and leave the user's files alone.
screenshots: export RAVELTON_DATA := $(abspath $(BUILD))/screenshot-data/
screenshots: build
	rm -rf $(BUILD)/screenshot-data
	mkdir -p $(SHOTS)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/empty-table.png
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/eight-players.png --full-table
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/hop-bets.png --full-table --hops
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/bets-as-numbers.png --full-table --amounts
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/rotated-90.png --full-table --rotate 90 --size 1000x1300
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/bankroll-graph.png --view bankroll --rolls 500 \
	  --graph-adjust 2 --graph-average 50 $(DEMO_PLAYER)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-bets.png --view configure:6
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-payoffs.png --view configure:7
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-checks.png --view configure:0
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-colors.png --view configure:1
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-comps.png --view configure:2
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-bankroll.png --view configure:5 --full-table
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/check-stacks.png --view checkstacks --full-table
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-sound.png --view configure:3
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-misc.png --view configure:4 --seed 20261122
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/auto-play.png --view autoplay:10 \
	  --player Alice=1000 --player Ben=1500 --player Carmen=800 --take-odds Alice --take-odds Carmen \
	  --win-rule Alice:6 --win-rule Carmen:3 --lose-rule Alice:2 --lose-rule Carmen:2
	rm -f $(BUILD)/screenshot.rol
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/new-session.png --view new --dice-file $(BUILD)/screenshot.rol
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/show-path.png --view path --full-table \
	  --dice-file $(BUILD)/screenshot.rol
	$(BUILD)/app/ravelton-cli probability --set-face 1:6=20000 --set-total 7=18000 \
	  --save $(BUILD)/skew.prb > /dev/null
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-probability.png --view configure:8 \
	  --prb $(BUILD)/skew.prb --prob-mode 1
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/configure-advantage.png --view configure:9
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-checkstacks.png --view print:checkstacks --full-table
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-advantage.png --view print:advantage
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/roll-pad-box.png --view pad:84:330x360 --rolls 120 $(DEMO_PLAYER)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/roll-pad-triangle.png --view pad:18:330x560 --rolls 120 $(DEMO_PLAYER)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/roll-pad-totals.png --view pad:113:600x200
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/roll-pad-faces.png --view pad:8:420x220
	rm -f $(BUILD)/screenshot-files.rol
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/dice-roll-files.png --view dicefiles \
	  --dice-file $(BUILD)/screenshot-files.rol --rolls 200 $(DEMO_PLAYER)
	rm -f $(BUILD)/screenshot-events.txt
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/events-log.png --view eventslog \
	  --events-log $(BUILD)/screenshot-events.txt --rolls 40 $(DEMO_PLAYER)
	rm -f $(BUILD)/screenshot-sessions.slg
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/sessions-log.png --view sessionslog \
	  --sessions-log $(BUILD)/screenshot-sessions.slg --sessions 60 --rolls 150 $(DEMO_PLAYER)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/summary.png --view summary:6 --rolls 500 $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/roll-totals.png --view totals --rolls 500 $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/bet-results.png --view results:6 --rolls 500 $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/hands.png --view hands --rolls 500 $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/roll-frequencies.png --view freqs --rolls 500 $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/bet-trends.png --view trends:2 --rolls 500 $(DEMO_PLAYER) \
	  --player Ben=2000 --bet 'Ben:Pass Line=5' --bet 'Ben:Lay 4=20' --bet 'Ben:Lay 5=20' \
	  --bet 'Ben:Lay 9=20' --bet 'Ben:Lay 10=20' --win-rule Ben:2 --lose-rule Ben:2
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/auto-bet.png --player Alice=1000 \
	  --view autobet:examples/three_point_molly.bet
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/batch.png --view batch $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/hot-keys.png --view hotkeys
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/help.png --view help
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/help-payoffs.png --view help:138
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-summary.png --view print:summary --rolls 500 $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-hands.png --view print:hands --rolls 500 $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-freqs.png --view print:freqs --rolls 500 $(STATS_GAME)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-bankroll-graph.png --view print:bankroll --rolls 500 \
	  --graph-adjust 2 --graph-average 50 $(STATS_GAME)
	rm -f $(BUILD)/screenshot-print.slg $(BUILD)/screenshot-print.rol
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-sessions-histogram.png --view print:sessions \
	  --sessions-log $(BUILD)/screenshot-print.slg --sessions 60 --rolls 150 $(DEMO_PLAYER)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-sessions-raw.png --view print:sessionsraw \
	  --sessions-log $(BUILD)/screenshot-print.slg $(DEMO_PLAYER)
	$(BUILD)/app/ravelton --screenshot $(SHOTS)/print-dice-file.png --view print:dicefile \
	  --dice-file $(BUILD)/screenshot-print.rol --rolls 260 $(DEMO_PLAYER)

# The sample games, saved from an empty data folder so that they carry no
# paths of this machine: whoever opens one plays onto their own logs.
EXAMPLE_DATA := $(BUILD)/example-data
THREE_PLAYERS := --player Alice=5000 --bet 'Alice:Pass Line=10' --bet 'Alice:Place 6=12' \
  --bet 'Alice:Place 8=12' --take-odds Alice --win-rule Alice:2 --lose-rule Alice:2 \
  --player Bob=5000 --bet "Bob:Don't Pass=10" --bet 'Bob:Lay 4=40' --lay-odds Bob \
  --win-rule Bob:2 --lose-rule Bob:2 \
  --player Cleo=5000 --bet 'Cleo:Field=5' --bet 'Cleo:Hard 6=2' --bet 'Cleo:Hard 8=2' \
  --bet 'Cleo:Craps=2' --win-rule Cleo:2 --lose-rule Cleo:2 --players Alice,Bob,Cleo

examples: build
	rm -rf $(EXAMPLE_DATA)
	$(BUILD)/app/ravelton-cli run --data $(EXAMPLE_DATA) --rolls 0 --seed 1 \
	  --player Alice=1000 --bet 'Alice:Pass Line=10' --take-odds Alice \
	  --win-rule Alice:2 --lose-rule Alice:2 --players Alice --save examples/pass_line_full_odds.rvg
	$(BUILD)/app/ravelton-cli run --data $(EXAMPLE_DATA) --rolls 0 --seed 1 $(THREE_PLAYERS) \
	  --save examples/three_players.rvg
	$(BUILD)/app/ravelton-cli run --data $(EXAMPLE_DATA) --rolls 2000 --seed 20261125 $(THREE_PLAYERS) \
	  --save examples/three_players_2000_rolls.rvg
	$(BUILD)/app/ravelton-cli probability --set-total 7=15000 --save examples/fewer_sevens.prb

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

sanitize: deps
	cmake -S . -B $(SANBUILD) -DCMAKE_BUILD_TYPE=Debug -DRAVELTON_SANITIZE=ON -DRAVELTON_BENCH=OFF
	cmake --build $(SANBUILD) -j $(JOBS)
	ctest --test-dir $(SANBUILD) --output-on-failure -j $(JOBS)

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

clean:
	rm -rf $(BUILD) $(SANBUILD)
