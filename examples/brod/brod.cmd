@echo off
rem The stand-in for Brodan's command line, for Windows; the file brod beside this one tells what it answers.
setlocal
set data=%~dp0data
if "%1"=="brod" shift
set file=
if "%1 %3"=="ls " set file=ls\%2
if "%1 %3"=="ls " set unknown=BRD0012E Object %2 is not catalogued.
if "%1 %3 %5"=="lscm -w " set file=lscm\%2@%4
if "%1 %3 %5"=="lscm -w " set unknown=BRD0027E No history of %2 at target %4.
if "%1 %2 %3"=="lstg -l " set file=lstg\targets
if "%1 %2 %3 %4 %5"=="lstg \* -l -b " set file=lstg\domains
if "%1 %2 %3 %4 %6"=="lstg \* -l -j " set file=lstg\group\%5
if "%1 %2 %3 %4 %6"=="lstg \* -l -j " set unknown=BRD0041E Group %5 is not defined.
if "%file%"=="" goto invalid
if "%file:~-1%"=="\" goto invalid
if not "%file:..=%"=="%file%" goto unknown
if not exist "%data%\%file%" goto unknown
type "%data%\%file%"
exit /b 0

:unknown
echo %unknown% 1>&2
exit /b 8

:invalid
echo BRD0001E Invalid command: brod %1 %2 %3 %4 %5 1>&2
exit /b 16
