#ifndef ORVET_FOUNDATION_MESSAGES_H
#define ORVET_FOUNDATION_MESSAGES_H

/// Every numbered message of the library, in number order. MSGI messages are printed to standard output, MSG
/// messages are logged; the two are separate sequences. Operators know the texts as they are: their spelling
/// stays.
namespace orvet::messages {

// clang-format off

// Environment and command line.
inline constexpr char MSGI0001[] = "MSGI0001 [F] The environment variable %s, containing the Ketrix installation path, is not set or can not be acccessed";
inline constexpr char MSGI0002[] = "MSGI0002 [F] The Brodan product was not found running in the node where the migration tool is running";
inline constexpr char MSGI0003[] = "MSGI0003 [W] The environment variable %s was set to the wrong value %s. The default value %s is used.";
inline constexpr char MSGI0004[] = "MSGI0004 [F] The option %s is not supported.";
inline constexpr char MSGI0005[] = "MSGI0005 [F] No value specified for option %s.";
inline constexpr char MSGI0006_osys[] = "MSGI0006 [F] The oprating system specified (%s) is invalid.";
inline constexpr char MSGI0006_tobj[] = "MSGI0006 [F] The object type specified (%s) is invalid.";
inline constexpr char MSGI0007[] = "MSGI0007 [F] The mandatory input parameter %s was not supplied.";
inline constexpr char MSGI0008[] = "MSGI0008 [W] The option %s specified at call time is not allowed.";
inline constexpr char MSGI0009[] = "MSGI0009 [F] The environment variable %s, containing the Ketrix work path, is not set or can not be acccessed";
inline constexpr char MSGI0010[] = "MSGI0010 [F] The value specified for the -ret option is incorrect. The err value is used as default.";
inline constexpr char MSGI0011[] = "MSGI0011 [F] The value specified for the -type option is incorrect. Allowed values are GEN, ZR7CID, WINCID, BRD2, PROCEDURE and PLAN.";

// Files and commands.
inline constexpr char MSG0001[] = "MSG0001 [F] A read/write operation has been attempted toa file that is not open";
inline constexpr char MSG0015[] = "MSG0015 [I] Submitting the command %s to Palisor 3.1.x.";
inline constexpr char MSG0016[] = "MSG0016 [E] The execution of the command %s returned rc %d, errno = %d";
inline constexpr char MSG0017[] = "MSG0017 [F] Error opening the file %s, errno =\t%d.";
inline constexpr char MSG0018[] = "MSG0018 [F] Error writing to file %s. Written bytes were %d, to write %d.";
inline constexpr char MSG0019[] = "MSG0019 [F] Error seeking in the file %s to offset %l from origin %d.";
inline constexpr char MSG0020[] = "MSG0020 [F] Error closing the file %s";
inline constexpr char MSG0037[] = "MSG0037 [F] System error reading %d bytes from file %s. Read %d bytes.";
inline constexpr char MSG0045[] = "MSG0045 [W] An error has been encountered removing the file %s. Errno was %d";

// Scan result files.
inline constexpr char MSG0107[] = "MSG0107 [E]  Discovered domain number <%d> with RGN <%s> depends from unexisting domain <%s>. All domain targets will be ignored.";
inline constexpr char MSG0108[] = "MSG0108 [W]  Discovered domain number <%d> with RGN <%s> has an invalid mode <%s> (probably discovery should be started there). Domain is included anyhow.";
inline constexpr char MSG0111[] = "MSG0111 [E]  Error parsing line <%d> of section <%s> of file <%s>. A \"<key> = <value>\" string was expected.";
inline constexpr char MSG0112[] = "MSG0112 [E]  Error parsing section <%s> of file <%s>. A \"count = <value>\" string was expected.";
inline constexpr char MSG0113[] = "MSG0113 [E]  Unable to locate section <%s> in file <%s>.";
inline constexpr char MSG0114[] = "MSG0114 [I]  Loading <%d> targets info for domain <%s>.";

// Input files.
inline constexpr char MSG0134[] = "MSG0134 [Fl Keyword %s is invalid in the currently read input file";
inline constexpr char MSG0135_started[] = "MSG0135 [Il Input file %s reading started.";
inline constexpr char MSG0135_completed[] = "MSG0135 [I] Input file %s reading successfully completed.";
inline constexpr char MSG0136[] = "MSG0136 [El The value <%s> is invalid as operating system.";
inline constexpr char MSG0137[] = "MSG0137 [F] The mandatory keywork %s was not supplied in the input file.";
inline constexpr char MSG0138[] = "MSG0138 [W] The keyword %s specified in the input file is not allowed in the current context.";
inline constexpr char MSG0139[] = "MSG0139 [I] Some error have been encountered reading and validating the file containing input information.";

// clang-format on

} // namespace orvet::messages

#endif
