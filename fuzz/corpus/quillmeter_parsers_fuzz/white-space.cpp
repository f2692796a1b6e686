static int first　(int a){ }
intsecond(int	a) {
}
int​third(int a) {
}
