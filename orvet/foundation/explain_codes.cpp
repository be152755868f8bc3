// The causes and remedies of the codes: what docs/return-codes.md shows.

#include <iterator>

#include "orvet/foundation/explain.h"

namespace orvet {

namespace {

// clang-format off

// In number order, with the name in codes.h after the number.
constexpr explanation rows[] = {

{"-1 section_absent", "kt_file::find_section",
 "The head is not in the rest of the file. Nothing is logged, since a tool may expect this.",
 "Check that this is the right kind of file. The head fills its line and is compared exactly: brackets, case, blanks."},
{"-1", "brod_base::exec_brod_cmd",
 "The shell could not be started (MSG0016).",
 "Look at the error number of MSG0016: memory or processes may have run out."},

{"0", "input_parms::validate, VXA_inst_info::validate, auth_profile_info::validate, user_info::validate",
 "Something mandatory is missing, or an agent's operating system can't be installed: not acceptable.",
 "Read MSGI0007 on standard output, or MSG0137 in the log."},
{"0", "kt_file::get_line, ustring::getline",
 "There was no line: the end of the file, a failed read, or a file that is not open.",
 "If a line was expected: look for MSG0017 or MSG0001 in the log, and check the disk."},
{"0", "kt_file::read",
 "The read of two arguments found nothing more, or the file is not open (MSG0001).",
 "If more was expected: look for MSG0017 or MSG0001 in the log, and check the disk."},
{"0", "kt_chkfile",
 "There is nothing of that name.",
 "Check the name, if something should be there."},
{"0 success", "any other operation",
 "Everything was done.",
 "Nothing."},

{"1 unknown_option", "input_parms::get_ips",
 "A word of the command line is not an option (MSGI0004).",
 "Correct the command line. A value with blanks needs quotes."},
{"1 no_server", "scan_cfg::set_server",
 "There is no server of that number. Nothing was touched.",
 "List the servers, and choose one of them by its number."},
{"1", "input_parms::validate, VXA_inst_info::validate, auth_profile_info::validate, user_info::validate",
 "The options, or the section, are acceptable.",
 "Nothing."},
{"1", "kt_chkfile",
 "Something of that name exists, perhaps a directory.",
 "Nothing."},

{"6 rename_failed", "kt_file::copy_to",
 "The file could not be renamed (MSG0016). It is unchanged, and a former target is gone; or the target is the file "
 "itself, and nothing was touched.",
 "Check that both names are on one file system and differ, that the target's directory exists, and that no program has "
 "the file open."},

{"15 value_missing", "input_parms::get_ips",
 "The last word is an option that takes a value (MSGI0005), or memory ran out.",
 "Add the value."},
{"16 op_sys_rejected", "input_parms::get_ips",
 "The value of -osys was refused (MSGI0006).",
 "Give UVX or WINDOWS_NT, in capitals."},
{"17 obj_type_rejected", "input_parms::get_ips",
 "The value of -tobj was refused (MSGI0006).",
 "Give PROC, PLAN or SOFTW, in capitals."},
{"18 not_provided", "file_input_parms::get_fips",
 "The input file has a fifth agent section.",
 "Split the file: at most four agents in each."},
{"18 not_provided", "file_input_parms::get_fips",
 "The tool called for a file without sections.",
 "If the file has at most four agents, report the tool."},

{"100 invalid_keyword", "VXA_inst_info::set, auth_profile_info::set, user_info::set, file_input_parms::get_fips",
 "A line of the input file begins with no keyword of its kind of file (MSG0134), or memory ran out.",
 "Correct the line; save the file without byte order mark and Ctrl-Z."},
{"101 invalid_op_system", "VXA_inst_info::set, file_input_parms::get_fips",
 "The operating system of an agent is none of the known names (MSG0136).",
 "Give a value that begins with WINDOWS_NT or WIN95, in capitals."},
{"102 invalid_section", "file_input_parms::get_fips",
 "A section lacks a keyword (MSG0137), or is an agent with a missing or unsupported operating system (MSG0139 alone).",
 "Add the missing line. An agent needs an OPERATING_SYSTEM that begins with WINDOWS_NT or WIN95."},
{"102 invalid_section", "file_input_parms::get_fips",
 "The file could not be read to its end, memory ran out, or the tool asked for a kind of file other than 1 to 3 (MSG0139 "
 "alone).",
 "If the section is complete, check the disk, and run the tool again."},

{"126", "brod_base::exec_brod_cmd",
 "On Linux: the shell found the command, but could not execute it (MSG0016).",
 "Check the permissions of the command."},
{"127", "brod_base::exec_brod_cmd",
 "On Linux: the shell did not find the command (MSG0016).",
 "Check the PATH, and what the tool puts before the command (-rcmd)."},

{"250 open_failed", "kt_file::open, file_input_parms::get_fips",
 "The file can't be opened, or is a directory (MSG0017).",
 "Look at the error number of MSG0017: 2, correct the name or path; 13, the permissions; 21, name a file."},
{"250 open_failed", "scan_cfg::load",
 "The file can't be opened or not be read to its end, is a directory, or memory ran out. Nothing was stored.",
 "Check the path and the permissions. If \"brod.cfg\" is gone and \"brod.bak\" is there, recover it or rename it back."},
{"250 open_failed", "scan_cfg::set_server",
 "Another process is changing the same configuration at this moment. Nothing was touched.",
 "Try again when it has finished."},
{"250 open_failed", "scan_cfg::set_server",
 "\"brod.tmp\" can't be created beside \"brod.cfg\", or is a directory. \"brod.cfg\" is unchanged.",
 "Check the permissions of the directory and the room on the disk; move a directory of that name away."},
{"250 open_failed", "scan_cfg::set_server",
 "\"brod.cfg\" is a link to \"brod.tmp\" or \"brod.bak\" or has such a name, or its path is shorter than 8 characters. "
 "Nothing was touched.",
 "Give the path of the configuration file itself, which ends in \"brod.cfg\"."},
{"250 open_failed", "scan_cfg::recover",
 "There is no \"brod.bak\" that could be put back, or it can't be seen whether \"brod.cfg\" exists. Nothing was touched.",
 "Check the path and the permissions. \"brod.tmp\", if it is there, holds the newest text; check that it is complete."},

{"251 write_failed", "kt_file::write",
 "Fewer bytes were written than the tool asked for (MSG0018): the disk is full, or the file was opened for reading.",
 "Make room on the disk, and run the tool again."},
{"251 write_failed", "scan_cfg::set_server",
 "The new text could not be written whole to \"brod.tmp\", or that is a device or a pipe. \"brod.cfg\" and \"brod.bak\" "
 "are unchanged.",
 "Make room on the disk; remove a device or pipe of that name."},
{"252 close_failed", "kt_file::close",
 "What was written last may not have reached the disk (MSG0020); the file counts as open.",
 "Make room on the disk, and run the tool again."},
{"253 seek_failed", "kt_file::seek, kt_file::open, file_input_parms::get_fips",
 "The position can't be set (MSG0019): a pipe or a terminal, an offset before the start, or no room for what was "
 "written before.",
 "Name a regular file, and make room on the disk."},
{"254 read_failed", "kt_file::read",
 "Fewer items were read than the tool asked for (MSG0037): the file is shorter, or the disk failed.",
 "Check that the file is complete."},
{"255 not_open", "kt_file::read, kt_file::write, kt_file::seek, kt_file::get_pos, kt_file::load_offsets",
 "The tool used a file that is not open (MSG0001).",
 "Look for MSG0017 before it and act on that; if there is none, report the tool."},
{"256 position_failed", "kt_file::get_pos, kt_file::open, kt_file::load_offsets, file_input_parms::get_fips",
 "The system can't tell the position in the file: it is a pipe or a terminal.",
 "Name a regular file."},
{"257 remove_failed", "kt_file::removef",
 "The system refused to remove the file (MSG0045).",
 "Close the program that has it open, correct the permissions of its directory, or remove it by hand."},

{"258 no_keyval", "kt_file::get_keyval, kt_file::seek_section",
 "The line has no \" = \", or reading failed. Nothing is logged.",
 "Correct the line: a key, \" = \" with both blanks, a value; if it is right, check the disk."},
{"258 no_keyval", "kt_file::load_top",
 "A topology line has no \" = \", or reading failed (MSG0111). The domains before it are loaded and not checked.",
 "Correct the line that MSG0111 names, or the count before it; if it is right, check the disk."},
{"258 no_keyval", "kt_file::load_offsets",
 "The line after the head of a target section has no \" = \", or reading failed (MSG0113).",
 "Correct the count line of the section that MSG0113 names; if it is right, check the disk."},
{"259 no_count", "get_count",
 "The line is not a count line.",
 "Correct the line: \"count = \" and a number."},
{"259 no_count", "kt_file::load_top",
 "The line after the head of the topology is not a count line, is missing, can't be read, or counts more than 32767 "
 "domains (MSG0112). Nothing was loaded.",
 "Correct the line: \"count = \" and the number of topology lines. Split a larger discovery."},
{"260 section_missing", "kt_file::seek_section, kt_file::load_offsets",
 "A section that must exist is not in the rest of the file (MSG0113, of load_offsets).",
 "Correct the file: one target section for each domain, in the order of the topology lines."},

{"261 replace_failed", "scan_cfg::set_server",
 "\"brod.cfg\" can't be renamed to \"brod.bak\": it is gone since it was loaded, or the system refused. The former "
 "\"brod.bak\" is gone; the new text is in \"brod.tmp\".",
 "If \"brod.cfg\" is gone, rename \"brod.tmp\" to it. Else close the program that has it open, on Windows clear the "
 "read-only attribute of \"brod.bak\", and try again."},
{"261 replace_failed", "scan_cfg::set_server",
 "\"brod.tmp\" can't take the place of \"brod.cfg\". The old text is back in \"brod.cfg\", or, if that failed too, in "
 "\"brod.bak\"; the new text is in \"brod.tmp\".",
 "If \"brod.cfg\" is gone, recover it or rename \"brod.bak\" back; then close the program that has it open, and try "
 "again."},
{"261 replace_failed", "scan_cfg::recover",
 "\"brod.bak\" can't be renamed to \"brod.cfg\". Both are unchanged.",
 "Check the permissions of the directory, and rename \"brod.bak\" by hand."},
};

// clang-format on

} // namespace

explanation_range code_explanations() noexcept
{
    return {std::begin(rows), std::end(rows)};
}

} // namespace orvet
