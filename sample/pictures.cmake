# Picture files and the drawings they are made from: "target drawing", relative to the program folder and to the
# source tree. Several names may share one drawing: the program asks for some by size.
set(pictures
  "Images/Word16.ico|Images/src/Word.svg"
  "Images/Excel16.ico|Images/src/Excel.svg"
  "Images/Default Page16.ico|Images/src/Default Page.svg"
  "Images/Open Chapter16.ico|Images/src/Open Chapter.svg"
  "Images/Product16.ico|Images/src/Product.svg"
  "Images/Zorvo.ico|Images/src/Zorvo.svg"
  "Images/Brendle.ico|Images/src/Brendle.svg"
  "Images/Splash.bmp|Images/src/Splash.svg"
  "Images/About.bmp|Images/src/About.svg"
  "Images/Sidebar.bmp|Images/src/Sidebar.svg"
  "Images/Treelist Background White.bmp|Images/src/Treelist Background White.svg")

# Each product group has a large and a small icon.
foreach(group Tessora Industries Quillbook Practice Sablewood Fennimore Partner Merle)
  list(APPEND pictures
    "Images/${group}.ico|Images/src/${group}.svg"
    "Images/${group}16.ico|Images/src/${group}.svg")
endforeach()

# Companies that sell the program under their own name.
foreach(company OTR MRL)
  foreach(name Brendle.ico Splash.bmp About.bmp Sidebar.bmp)
    string(REGEX REPLACE "\\..*" "" drawing ${name})
    list(APPEND pictures "${company}/${name}|${company}/src/${drawing}.svg")
  endforeach()
endforeach()

# Pictures of the offline pages.
foreach(page Tessora Industries Quillbook Practice Sablewood Fennimore Partner Merle)
  string(TOLOWER ${page} name)
  list(APPEND pictures "TreeData/HTML/${name}.png|Images/src/${page}.svg")
endforeach()
