# Speaks the stick person's calls into FOLDER as the set "Dealer" (files
# Dealer02.stk to Dealer18.stk, wave files), with the speech synthesiser
# ESPEAK. Call n is the dice total for 2 to 12, then the calls of a made
# point, a seven-out, a miss on the barred number, a pair, a come-out and a
# new shooter's first come-out. Call 1 stays silent, as the table has no
# use for it.
# Usage: cmake -DESPEAK=espeak-ng -DFOLDER=dir -P MakeStickCalls.cmake
set(calls
  "02|Two, craps. Aces."
  "03|Three, craps. Ace deuce."
  "04|Four."
  "05|Five. No field five."
  "06|Six."
  "07|Seven."
  "08|Eight."
  "09|Nine. Centre field nine."
  "10|Ten."
  "11|Yo, eleven!"
  "12|Twelve, craps. Boxcars."
  "13|Winner! Pay the line."
  "14|Seven out. Line away."
  "15|Barred. Push the don'ts."
  "16|The hard way!"
  "17|Coming out!"
  "18|New shooter. Coming out!")
file(MAKE_DIRECTORY ${FOLDER})
foreach(call IN LISTS calls)
  string(FIND "${call}" "|" bar)
  string(SUBSTRING "${call}" 0 ${bar} number)
  math(EXPR start "${bar} + 1")
  string(SUBSTRING "${call}" ${start} -1 words)
  execute_process(COMMAND ${ESPEAK} -v en-us -s 165 -w ${FOLDER}/Dealer${number}.stk "${words}"
                  RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "cannot speak stick call ${number}")
  endif()
endforeach()
