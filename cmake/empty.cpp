// Lets a folder that holds only headers be a library like its sisters.
