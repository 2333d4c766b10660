// The texts of the message boxes, listed for translation: the boxes show them through
// QCoreApplication::translate("Messages", ...), from the engine's own constants.
#include <QtGlobal>

namespace kirameki {

[[maybe_unused]] static const char* const kMessageTexts[] = {
    QT_TRANSLATE_NOOP("Messages", "Confirmation"),
    QT_TRANSLATE_NOOP("Messages", "Now rendering, Abort current process?"),
    QT_TRANSLATE_NOOP("Messages",
                      "Now rendering. Save the file after the precedeing process is "
                      "finnished.\n\nAbort current process?"),
    QT_TRANSLATE_NOOP("Messages",
                      "Now rendering. Change the size after the preceding process is "
                      "finnished.\n\nAbort current process?"),
    QT_TRANSLATE_NOOP("Messages", "Now rendering. Abort current process to exit the program?"),
    QT_TRANSLATE_NOOP("Messages", "Refractive index must be set within the range of 1.00 to 3.00."),
    QT_TRANSLATE_NOOP("Messages", "Failed to open file."),
    QT_TRANSLATE_NOOP("Messages", "Capturing was aborted."),
    QT_TRANSLATE_NOOP("Messages", "Restore default settings?"),
    QT_TRANSLATE_NOOP("Messages", "Restore default setting?"),
    QT_TRANSLATE_NOOP("Messages",
                      "All frames have not been captured.\n\nResume capturing by choosing "
                      "\"Resume(R)\"\nfrom \"Automatic Screen Capture(P)\" menu."),
    QT_TRANSLATE_NOOP(
        "Messages",
        "This Capture-Info File reports\n\"All the nessesary frames have already been captured.\" "
        "\n\nDo you try File-Existance-Check for each frame,\nand if any frame is found "
        "missing,\nredraw for it to complete the whole set of frames?"),
    QT_TRANSLATE_NOOP("Messages",
                      "Only \"Screen-Shot Picture File\" was saved.\n\nTo save its Position-Info "
                      "File together,\nGo to \"Settings(S)\" --> \"General Settings(S)\",\nthen "
                      "check \"Position-Info File\" on that dialog."),
    QT_TRANSLATE_NOOP(
        "Messages",
        "\"Screen-Shot Picture File\" and its \"Position-Info File\" were saved.\n\nTo read "
        "Position-Info File,\nGo to \"ScreenShot(T)\" --> \"Restore Position(R)\".\nIt restores "
        "model's position to where it was captured."),
    QT_TRANSLATE_NOOP(
        "Messages",
        "All frames have been captured.\n\nTo make Animation GIF file from these frames,\nGo to "
        "the \"Automatic Screen Capture(P)\" menu -> \"Make Animation GIF(A)\",\nthen on the "
        "\"Open Capture-Info File\" dialog,\nSelect this \"%s.sqi\" file."),
    QT_TRANSLATE_NOOP("Messages", "Animation GIF file was saved.\n\n%s"),
    QT_TRANSLATE_NOOP("Messages", "Animated WebP file was saved.\n\n%s"),
    QT_TRANSLATE_NOOP(
        "Messages",
        "Failed to open file.\n\nFollowing file may not exist in the same directory.\n\n%s\n\n\nIn "
        "this case, Resume capturing to complete the whole set of files.\n\nGo to the \"Automatic "
        "Screen Capture(P)\" --> \"Resume(R)\" then\n\"File Existance Check(Yes/No)\" dialog will "
        "show up.\nClick \"Yes\" to begin complement."),
    QT_TRANSLATE_NOOP(
        "Messages",
        "Failed to open file.\n\nFollowing file exists but is damaged.\n\n%s\n\n\nIn this case, "
        "Resume capturing to draw it again.\n\nGo to the \"Automatic Screen Capture(P)\" --> "
        "\"Resume(R)\" then\n\"File Existance Check(Yes/No)\" dialog will show up.\nClick \"Yes\" "
        "to begin complement."),
    QT_TRANSLATE_NOOP("Messages",
                      "A frame could not be saved, so capturing has stopped.\n\n%s\n\nResume "
                      "capturing when the cause is mended: it carries on from this frame."),
};

}  // namespace kirameki
