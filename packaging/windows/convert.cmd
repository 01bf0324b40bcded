@echo off
rem Converts the program that is dropped on this file into its own folder. An .xml file that is dropped with it is
rem the parameter file.
setlocal DisableDelayedExpansion
if "%~1"=="" goto usage
if not "%~3"=="" goto usage
if /i "%~x1"==".xml" goto parameters_first
if "%~2"=="" goto program_alone
if /i not "%~x2"==".xml" goto usage

rem The full stop keeps the backslash at the end of the folder away from the quote behind it.
set "result=%~dpn1"
"%~dp0BrannicToTorvel64.exe" -p "%~f2" -o "%~dp1." "%~f1"
goto ended

:parameters_first
if "%~2"=="" goto usage
set "result=%~dpn2"
"%~dp0BrannicToTorvel64.exe" -p "%~f1" -o "%~dp2." "%~f2"
goto ended

:program_alone
set "result=%~dpn1"
"%~dp0BrannicToTorvel64.exe" -o "%~dp1." "%~f1"

:ended
if errorlevel 1 goto failed
echo Written: "%result%.torvel"
echo          "%result%.log"
pause
exit /b 0

:usage
echo Drop one program on this file, alone or together with the .xml parameter file of its controller.
:failed
echo Nothing was converted.
pause
exit /b 1
