// Stands for the headers that every test includes; they are compiled once, on behalf of this file.
