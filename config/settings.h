// The table's rules, limits and options, with their defaults.
#pragma once

struct TableSettings {};
