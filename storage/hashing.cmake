# Password hashing: DES crypt, MD5 and HTTP digest helpers (kogen::Crypt) and
# the Blowfish obscuring routine (ko::BlowFish).
commonkit_add_sources(
  ${CMAKE_CURRENT_LIST_DIR}/Crypt.cpp
  ${CMAKE_CURRENT_LIST_DIR}/DesCrypt.cpp
  ${CMAKE_CURRENT_LIST_DIR}/BlowFish.cpp)
commonkit_install_headers(
  ${CMAKE_CURRENT_LIST_DIR}/Crypt.h
  ${CMAKE_CURRENT_LIST_DIR}/BlowFish.h)
