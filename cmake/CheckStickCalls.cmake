# Fails unless FOLDER holds the spoken stick calls Dealer02.stk to
# Dealer18.stk, each a wave file with some sound in it.
# Usage: cmake -DFOLDER=dir -P CheckStickCalls.cmake
cmake_minimum_required(VERSION 3.25)
set(kLeastBytes 4000)  # a tenth of a second of 22 kHz 16-bit speech
foreach(n RANGE 2 18)
  if(n LESS 10)
    set(n "0${n}")
  endif()
  set(path ${FOLDER}/Dealer${n}.stk)
  if(NOT EXISTS ${path})
    message(FATAL_ERROR "${path} is missing")
  endif()
  file(SIZE ${path} bytes)
  file(READ ${path} head LIMIT 4 HEX)
  if(bytes LESS ${kLeastBytes} OR NOT head STREQUAL "52494646")  # "RIFF"
    message(FATAL_ERROR "${path} is not a spoken wave file (${bytes} bytes, begins ${head})")
  endif()
endforeach()
message(STATUS "17 stick calls spoken")
