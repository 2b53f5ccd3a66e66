// Keeps a library without sources buildable.
