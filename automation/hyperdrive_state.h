// State of a Hyper-Drive run: its limits, throttle, Auto-Stop and counters.
#pragma once

struct HyperDriveState {};
