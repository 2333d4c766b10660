#pragma once

#include <string>

// The program's own texts for the outcomes of saving, capturing and compiling. The viewer
// translates them; the command line prints them as they stand.
namespace kirameki::messages {

inline constexpr const char* kFailedToOpenFile = "Failed to open file.";
inline constexpr const char* kCapturingAborted = "Capturing was aborted.";
inline constexpr const char* kAllFramesCaptured =
    "All frames have been captured.\n\nTo make Animation GIF file from these frames,\nGo to the "
    "\"Automatic Screen Capture(P)\" menu -> \"Make Animation GIF(A)\",\nthen on the \"Open "
    "Capture-Info File\" dialog,\nSelect this \"%s.sqi\" file.";
inline constexpr const char* kAlreadyComplete =
    "This Capture-Info File reports\n\"All the nessesary frames have already been captured.\" "
    "\n\nDo you try File-Existance-Check for each frame,\nand if any frame is found missing,\n"
    "redraw for it to complete the whole set of frames?";
inline constexpr const char* kNotAllFramesCaptured =
    "All frames have not been captured.\n\nResume capturing by choosing \"Resume(R)\"\nfrom "
    "\"Automatic Screen Capture(P)\" menu.";
inline constexpr const char* kAnimationSaved = "Animation GIF file was saved.\n\n%s";
inline constexpr const char* kAnimatedWebPSaved = "Animated WebP file was saved.\n\n%s";
inline constexpr const char* kMissingFrame =
    "Failed to open file.\n\nFollowing file may not exist in the same directory.\n\n%s\n\n\nIn "
    "this case, Resume capturing to complete the whole set of files.\n\nGo to the \"Automatic "
    "Screen Capture(P)\" --> \"Resume(R)\" then\n\"File Existance Check(Yes/No)\" dialog will "
    "show up.\nClick \"Yes\" to begin complement.";
inline constexpr const char* kDamagedFrame =
    "Failed to open file.\n\nFollowing file exists but is damaged.\n\n%s\n\n\nIn this case, "
    "Resume capturing to draw it again.\n\nGo to the \"Automatic Screen Capture(P)\" --> "
    "\"Resume(R)\" then\n\"File Existance Check(Yes/No)\" dialog will show up.\nClick \"Yes\" "
    "to begin complement.";
inline constexpr const char* kFrameNotSaved =
    "A frame could not be saved, so capturing has stopped.\n\n%s\n\nResume capturing when the "
    "cause is mended: it carries on from this frame.";
inline constexpr const char* kOnlyPictureSaved =
    "Only \"Screen-Shot Picture File\" was saved.\n\nTo save its Position-Info File together,\nGo "
    "to \"Settings(S)\" --> \"General Settings(S)\",\nthen check \"Position-Info File\" on that "
    "dialog.";
inline constexpr const char* kPictureAndPositionSaved =
    "\"Screen-Shot Picture File\" and its \"Position-Info File\" were saved.\n\nTo read "
    "Position-Info File,\nGo to \"ScreenShot(T)\" --> \"Restore Position(R)\".\nIt restores "
    "model's position to where it was captured.";

// The text with %s replaced by the argument.
std::string Format(const char* text, const std::string& argument);

}  // namespace kirameki::messages
