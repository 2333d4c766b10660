# The Debian package, built by scripts/package with CPack: dependencies from dpkg-shlibdeps,
# stripped programs, installed under /usr.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kirameki)
set(CPACK_PACKAGE_VENDOR "The Kirameki developers")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Kirameki developers <kirameki@users.noreply.github.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "viewer and ray-tracing renderer for cut gemstones")
# The synopsis is the summary above; CPack indents these lines as Debian wants them.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Kirameki shows a cut gemstone as a shaded surface model that can be turned
with the mouse and the keyboard, and ray-traces it with Fresnel reflection,
refraction, total internal reflection and dispersion. It saves screen shots,
captures a full turn of the stone frame by frame and compiles the frames into
an animated GIF or WebP, and exports the stone as OBJ, STL or glTF.
.
The kirameki-cli command does all of this without a display.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://kirameki.github.io/")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The icon engine that draws the SVG window icon is loaded as a plug-in, which shlibdeps cannot see.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-translations-l10n, fonts-noto-cjk")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
